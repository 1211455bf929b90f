# SPDX-License-Identifier: MIT
"""How long it takes until a controller holds what was changed, and that is known: `zorvanectl send` beside
`zorvanectl download`, as whole processes, with zorvane-sim letting bytes pass at 9600 baud.

    sending.py PROGRAMS MODELS [--model NAME]... [--baud N] [--times N]
"""
import argparse
import json
import os
import statistics
import subprocess
import sys
import tempfile
import time

MODELS = (("kvrt", "kvrt.ztp", "EXAMPLE.KVRT"), ("KVRT100", "KVRT100.ZTP", "EXAMPLE.KVRT100"),
          ("KVRT207D", "KVRT207D.ZTP", "EXAMPLE.KVRT207D"), ("R7702-16", "R7702-16.ZTP", "EXAMPLE.R7702-16"))
CHANGED = (0, 1, 3, 10)


class Bench:
    def __init__(self, arguments, model, folder):
        self.programs, self.folder, self.baud = arguments.programs, folder, arguments.baud
        _, template, document = model
        self.template = os.path.join(arguments.models, template)
        self.document = os.path.join(arguments.models, document)
        self.port = os.path.join(folder, "port")

    def simulator(self, registers, config):
        held = os.path.join(self.folder, "registers.json")
        with open(held, "w", encoding="ascii") as file:
            json.dump(registers, file)
        if os.path.islink(self.port):
            os.unlink(self.port)
        command = [os.path.join(self.programs, "zorvane-sim"), "--template", self.template, "--pty", self.port, "--pace",
                   str(self.baud), "--registers", held, *(("--config", self.document) if config else ())]
        process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        assert process.stdout.readline().startswith(b"ready")
        return process

    def call(self, name, *options):
        """Seconds, and what was told."""
        command = [os.path.join(self.programs, "zorvanectl"), name, self.template, self.document, "--port", self.port,
                   "--settings", f"{self.baud},n,8,1", *options, "--json"]
        begun = time.monotonic()
        run = subprocess.run(command, capture_output=True, text=True, stdin=subprocess.DEVNULL, check=False,
                             env={**os.environ, "XDG_STATE_HOME": os.path.join(self.folder, "state")})
        took = time.monotonic() - begun
        assert run.returncode in (0, 3), f"{name} ended with {run.returncode}: {run.stderr}"
        return took, json.loads(run.stdout)

    def on(self, registers, config, name, *options):
        simulator = self.simulator(registers, config)
        try:
            return self.call(name, *options)
        finally:
            simulator.terminate()
            simulator.wait()
            simulator.stdout.close()

    def differing(self):
        """{register: what the factory has there} of all that the example has otherwise."""
        _, plan = self.on({}, False, "plan")
        before = plan["before"]
        return [(write["address"] + i, before[str(write["address"] + i)]) for write in plan["writes"]
                for i, value in enumerate(write["values"]) if before[str(write["address"] + i)] != value]

    def rows(self, times):
        differing = self.differing()
        for count in (*(count for count in CHANGED if count < len(differing)), len(differing)):
            step = max(1, len(differing) // max(count, 1))
            registers = dict(differing[::step][:count])
            runs = [self.on(registers, True, "send", "--yes") for _ in range(times)]
            told = runs[0][1]
            assert told["counts"]["verified"] == told["counts"]["rows"], told["counts"]
            requests = told["requests"]
            changed = f"{count} (all)" if count == len(differing) else str(count)
            yield changed, requests["reads"], requests["writes"], statistics.median(took for took, _ in runs)
        took = statistics.median(self.on({}, False, "download")[0] for _ in range(times))
        yield "download", "", "", took


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("programs", type=os.path.abspath)
    parser.add_argument("models", type=os.path.abspath)
    parser.add_argument("--model", action="append", help="only this one; may be given several times")
    parser.add_argument("--baud", type=int, default=9600)
    parser.add_argument("--times", type=int, default=1, help="runs of each, of which the median is told")
    arguments = parser.parse_args()
    print("| model | changed registers | reads | writes | seconds |\n|---|---|---|---|---|")
    for model in MODELS:
        if arguments.model and model[0] not in arguments.model:
            continue
        with tempfile.TemporaryDirectory() as folder:
            for changed, reads, writes, took in Bench(arguments, model, folder).rows(arguments.times):
                print(f"| {model[0]} | {changed} | {reads} | {writes} | {took:.2f} |", flush=True)
    return 0


if __name__ == "__main__":
    sys.exit(main())
