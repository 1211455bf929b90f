#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""zorvanectl over ports on a network: a Modbus TCP server by pymodbus, ser2net before a simulated controller on a
pseudo-terminal, raw and by RFC 2217, and the simulated controller's own server.

    network_test.py PROGRAMS
"""
import json
import os
import re
import select
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import time
import unittest

HERE = os.path.dirname(os.path.abspath(__file__))
SER2NET = shutil.which("ser2net", path=os.environ["PATH"] + ":/usr/sbin:/sbin")

TEMPLATE = """[HARDWARE]
CONTROLLER=TWO
[PORT_CONFIGURATION]
COMMUNICATIONS_1_REQUEST=20
COMMUNICATIONS_1_OUT=500
HOLDINGREGISTERS=400
HOLDINGREGISTERSBLOCK_1=100-101
HOLDINGREQUESTBLOCK_1=ALWAYS
HOLDINGREGISTERSBLOCK_2=110-111
[CONFIGURATION_COLUMNS]
CONFIGURATION_NC=2
COL_1_DESC=No.
[CONFIGURATION_FIELDS]
FIELD_1_DESC=Levels
FIELD_1_RC=2,2
[FIELD_1_COLUMNS]
COL_1_DESC=Name
COL_2_DESC=Level
COL_2_MODIFIABLE=YES
COL_2_MDBUSREQUEST=ALWAYS
[FIELD_1_CONFIGURATION]
ROWADDRESS_1=,100
ROWADDRESS_2=,110
"""
DOCUMENT = """[Configuration_Default]
FIELD_1=,Levels

[Field_1_Default]
ROW_1=first,5
ROW_2=second,6
"""
REGISTERS = {"100": 255, "101": 0, "110": 65535, "111": 255}  # bytes that telnet doubles among them


def listening_port(pid):
    """The port of the loopback at which the process listens, once it does."""
    deadline = time.monotonic() + 10
    while time.monotonic() < deadline:
        inodes = set()
        for number in os.listdir(f"/proc/{pid}/fd"):
            try:
                found = re.fullmatch(r"socket:\[(\d+)\]", os.readlink(f"/proc/{pid}/fd/{number}"))
            except FileNotFoundError:
                continue
            if found:
                inodes.add(found[1])
        with open(f"/proc/{pid}/net/tcp", encoding="ascii") as file:
            for fields in (line.split() for line in file):
                if len(fields) > 9 and fields[9] in inodes and fields[3] == "0A":
                    return int(fields[1].split(":")[1], 16)
        select.select([], [], [], 0.02)  # ser2net tells nobody when it is ready
    raise AssertionError("ser2net doesn't listen")


class NetworkTest(unittest.TestCase):
    programs = ""

    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.template = self.file("TWO.ZTP", TEMPLATE)
        self.document = self.file("site.TWO", DOCUMENT)
        self.processes = []

    def tearDown(self):
        for process in self.processes:
            if process.poll() is None:
                process.send_signal(signal.SIGTERM)
            process.wait()
            process.stdout.close()
        self.folder.cleanup()

    def path(self, name):
        return os.path.join(self.folder.name, name)

    def file(self, name, text):
        with open(self.path(name), "w", encoding="cp1252", newline="\r\n") as file:
            file.write(text)
        return self.path(name)

    def start(self, *command):
        process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        self.processes.append(process)
        return process

    def ready_at(self, *command):
        ready = self.start(*command).stdout.readline().decode()
        self.assertTrue(ready.startswith("ready "), ready)
        return ready[len("ready "):-1]

    def simulator(self, *options):
        held = self.file("held.json", json.dumps(REGISTERS))
        return self.ready_at(os.path.join(self.programs, "zorvane-sim"), "--template", self.template, "--config",
                             self.document, "--registers", held, *options)

    def ser2net(self, accepter):
        line = self.simulator("--pty", self.path("line"))
        config = self.file("ser2net.yaml", f"connection: &line\n  accepter: {accepter},127.0.0.1,0\n"
                                           f"  connector: serialdev,{os.path.realpath(line)},9600n81,local\n")
        server = self.start(SER2NET, "-n", "-u", "-c", config)
        return f"127.0.0.1:{listening_port(server.pid)}"

    def ctl(self, port, call, *arguments):
        return subprocess.run([os.path.join(self.programs, "zorvanectl"), call, self.template, self.document, *arguments,
                               "--port", port], capture_output=True, text=True, timeout=60, check=False)

    def values(self, port):
        """The registers as an upload over the port finds them."""
        run = self.ctl(port, "upload", "--json", "--registers", self.path("r.json"), "--save", self.path("out.TWO"))
        self.assertEqual(run.returncode, 0, run.stderr)
        with open(self.path("r.json"), encoding="utf-8") as file:
            return json.load(file)

    def goes_both_ways(self, port):
        self.assertEqual(self.values(port), REGISTERS)
        run = self.ctl(port, "watch", "1", "--count", "1", "--json")
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertEqual(json.loads(run.stdout.splitlines()[0])["cells"][0]["text"], "255")
        run = self.ctl(port, "download", "--json")
        self.assertEqual(run.returncode, 0, run.stderr)
        after = self.values(port)
        self.assertEqual((after["100"], after["110"]), (5, 6))

    def test_modbus_tcp_with_pymodbus(self):
        held = self.file("held.json", json.dumps(REGISTERS))
        self.goes_both_ways(self.ready_at("/usr/bin/python3", os.path.join(HERE, "pymodbus_tcp_slave.py"),
                                          "--registers", held))

    def test_modbus_tcp_with_the_simulated_controller(self):
        self.goes_both_ways(self.simulator("--tcp", "0"))

    def test_rtu_over_tcp_with_the_simulated_controller(self):
        self.goes_both_ways(self.simulator("--tcp", "0", "--rtu-over-tcp"))

    def test_rtu_over_tcp_with_ser2net(self):
        self.goes_both_ways("rtu+tcp:" + self.ser2net("tcp"))

    def test_rfc_2217_with_ser2net(self):
        self.goes_both_ways("rfc2217:" + self.ser2net("telnet(rfc2217),tcp"))

    def find(self, port, *options):
        """The units that are found, with their settings."""
        run = subprocess.run([os.path.join(self.programs, "zorvanectl"), "find", "--port", port, "--listen", "0.2", "--json",
                              *options], capture_output=True, text=True, timeout=60, check=False)
        self.assertEqual(run.returncode, 0, run.stderr)
        return [(each["unit"], each["settings"]) for each in json.loads(run.stdout)["found"]]

    def test_units_are_found_at_pymodbus(self):
        held = self.file("held.json", json.dumps(REGISTERS))
        port = self.ready_at("/usr/bin/python3", os.path.join(HERE, "pymodbus_tcp_slave.py"), "--registers", held)
        self.assertIn((1, None), self.find(port, "--units", "1-3"))

    def test_units_are_found_behind_ser2net(self):
        self.assertEqual(self.find("rtu+tcp:" + self.ser2net("tcp"), "--units", "1-5"), [(1, None)])

    def test_units_and_settings_are_found_by_rfc_2217(self):
        port = "rfc2217:" + self.ser2net("telnet(rfc2217),tcp")
        self.assertEqual(self.find(port, "--units", "1-5", "--settings", "38400,e,8,1"), [(1, "38400,e,8,1")])

    def test_a_server_that_refuses_rfc_2217_is_named(self):
        server = self.ser2net("telnet,tcp")
        run = self.ctl("rfc2217:" + server, "upload")
        self.assertEqual(run.returncode, 1)
        self.assertIn(f"The server {server} refuses RFC 2217.", run.stderr)

    def test_a_server_that_does_not_speak_rfc_2217_is_named(self):
        server = self.ser2net("tcp")
        run = self.ctl("rfc2217:" + server, "upload")
        self.assertEqual(run.returncode, 1)
        self.assertIn(f"The server {server} doesn't speak RFC 2217: nothing answered the offer.", run.stderr)

    def test_a_refused_connection_is_named(self):
        with socket.create_server(("127.0.0.1", 0)) as listener:
            number = listener.getsockname()[1]
        run = self.ctl(f"tcp:127.0.0.1:{number}", "upload")
        self.assertEqual(run.returncode, 1)
        self.assertIn(f"No connection to 127.0.0.1:{number} (Modbus TCP).", run.stderr)
        self.assertIn(f"Refused: 127.0.0.1 is there, but takes no connection at its port {number}.", run.stderr)

    def identify(self, port):
        return [os.path.join(self.programs, "zorvanectl"), "identify", self.template, "--port", port, "--json"]

    def test_looking_names_a_port_on_a_network_as_one(self):
        with socket.create_server(("127.0.0.1", 0)) as listener:
            port = f"tcp:127.0.0.1:{listener.getsockname()[1]}"
        run = subprocess.run(self.identify(port), capture_output=True, text=True, timeout=60, check=False)
        self.assertEqual(run.returncode, 1)
        self.assertIn(f"zorvanectl: The port {port} can't be opened. Refused: ", run.stderr)
        run = subprocess.run(self.identify(self.simulator("--tcp", "0", "--fault", "unplug=1:1")), capture_output=True,
                             text=True, timeout=60, check=False)
        self.assertEqual(run.returncode, 1)
        self.assertIn(" closed the connection. Try again, and look at the network between.", run.stderr)

    def test_a_signal_while_the_connection_is_made_ends_looking(self):
        with socket.socket() as full, socket.socket() as first, socket.socket() as second:
            full.bind(("127.0.0.1", 0))
            full.listen(0)
            for client in (first, second):  # the queue is full then, and nobody takes anything from it
                client.setblocking(False)
                client.connect_ex(full.getsockname())
            port = f"tcp:127.0.0.1:{full.getsockname()[1]}"
            with subprocess.Popen(self.identify(port), stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True) as program:
                self.wait_for_connecting(program.pid)
                program.send_signal(signal.SIGTERM)
                out, err = program.communicate(timeout=60)
        self.assertEqual(program.returncode, 1)
        self.assertEqual(json.loads(out)["failure"], "Stopped before the port was open. Nothing was sent.")
        self.assertEqual(err, "zorvanectl: Stopped before the port was open. Nothing was sent.\n")

    def wait_for_connecting(self, pid):
        """Until the process has a connection that isn't made yet."""
        deadline = time.monotonic() + 10
        while time.monotonic() < deadline:
            with open(f"/proc/{pid}/net/tcp", encoding="ascii") as file:
                states = {line.split()[9]: line.split()[3] for line in file if line.split()[0] != "sl"}
            for number in os.listdir(f"/proc/{pid}/fd"):
                try:
                    found = re.fullmatch(r"socket:\[(\d+)\]", os.readlink(f"/proc/{pid}/fd/{number}"))
                except FileNotFoundError:
                    continue
                if found and states.get(found[1]) == "02":
                    return
            select.select([], [], [], 0.02)  # it tells nobody when it begins
        raise AssertionError("nothing is being connected")

    def test_a_name_without_a_port_is_an_error_of_the_command_line(self):
        run = self.ctl("tcp:127.0.0.1", "upload")
        self.assertEqual(run.returncode, 2)
        self.assertIn("The port tcp:127.0.0.1 names no port on the host. Write host and port, as in "
                      "tcp:192.168.0.7:502.", run.stderr)

    def test_late_answers_end_in_the_right_values(self):
        self.assertEqual(self.values(self.simulator("--tcp", "0", "--fault", "late=700:2")), REGISTERS)

    def test_a_broken_connection_ends_an_upload_and_the_next_one_makes_it_again(self):
        port = self.simulator("--tcp", "0", "--fault", "unplug=1:1")
        run = self.ctl(port, "upload", "--save", self.path("out.TWO"))
        self.assertEqual(run.returncode, 1, run.stderr)
        self.assertIn("Error. The controller does not respond.", run.stderr)
        self.assertFalse(os.path.exists(self.path("out.TWO")))
        self.assertEqual(self.values(port), REGISTERS)

    def test_a_watch_makes_a_broken_connection_again_by_itself(self):
        port = self.simulator("--tcp", "0", "--fault", "unplug=1500:2%", "--seed", "1")  # not at the first requests
        command = [os.path.join(self.programs, "zorvanectl"), "watch", self.template, self.document, "1", "--port", port,
                   "--json"]
        with subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True) as watch:
            try:
                shown = (json.loads(line) for line in watch.stdout)
                lost = next(refresh for refresh in shown if refresh["lost"])
                self.assertEqual(lost["cells"][0]["text"], "???")
                back = next(refresh for refresh in shown if not refresh["lost"])
                self.assertEqual(back["cells"][0]["text"], "255")
            finally:
                watch.terminate()

    def test_a_gateways_exception_stands_in_words(self):
        port = self.simulator("--tcp", "0", "--fault", "exception=11@110")
        run = self.ctl(port, "upload", "--json")
        self.assertEqual(run.returncode, 1)
        self.assertIn("Gateway target failed to respond (exception 11)", run.stderr)


if __name__ == "__main__":
    NetworkTest.programs = os.path.abspath(sys.argv.pop(1))
    unittest.main()
