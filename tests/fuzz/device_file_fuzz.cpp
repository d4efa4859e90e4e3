// Files of the device that the console reads: two saved configurations for the factory comparison,
// and the agent's for the SNMP listing, with a 0xff between them.
#include "fuzz_target.h"

#include "commands/factory.h"
#include "commands/snmp_usm.h"
#include "fuzz/scripted_host.h"
#include "unit/recording_shell.h"

#include <cstring>
#include <memory>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const ScriptedHost host(split_at(fuzz_text(data, size), '\xff'), Answers::WELL_FORMED);
    const RecordingShell shell;
    const auto cli = std::make_unique<CliContext>();
    compare_with_factory(*cli, "", nullptr);
    ValueBuffer text(4095);
    const char *engine_id = read_engine_id("/var/net-snmp/snmpd.conf", text);
    require(engine_id == nullptr || std::strlen(engine_id) <= text.limit());
    return 0;
}
