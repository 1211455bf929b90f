// SPDX-License-Identifier: MIT
#include "reports/export/xls/ole_container.h"

#include "values/run_time_failure.h"

#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-output-memory.h>
#include <gsf/gsf-utils.h>

#include <memory>

namespace zorvane {

namespace {

struct Unref {
    template <class Object> void operator()(Object* object) const { g_object_unref(object); }
};
template <class Object> using Owned = std::unique_ptr<Object, Unref>;

void require(bool done) {
    if (!done) throw Run_Time_Failure(Failure::PathFileAccess);
}

} // namespace

std::string oleFile(const std::string& streamName, const std::string& stream) {
    const Owned<GsfOutput> memory(gsf_output_memory_new());
    const Owned<GsfOutfile> container(gsf_outfile_msole_new(memory.get()));
    {
        const Owned<GsfOutput> inner(gsf_outfile_new_child(container.get(), streamName.c_str(), FALSE));
        const auto* const bytes = reinterpret_cast<const guint8*>(stream.data());
        require(gsf_output_write(inner.get(), stream.size(), bytes) != FALSE);
        require(gsf_output_close(inner.get()) != FALSE);
    }
    require(gsf_output_close(GSF_OUTPUT(container.get())) != FALSE);
    const guint8* const bytes = gsf_output_memory_get_bytes(GSF_OUTPUT_MEMORY(memory.get()));
    const auto size = static_cast<std::size_t>(gsf_output_size(memory.get()));
    require(bytes != nullptr);
    return {reinterpret_cast<const char*>(bytes), size};
}

} // namespace zorvane
