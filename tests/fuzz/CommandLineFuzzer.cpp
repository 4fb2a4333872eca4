#include "CommandLine.h"
#include "fuzz/Demand.h"

/// The bytes are the arguments, one a line.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString text = QString::fromLocal8Bit(reinterpret_cast<const char*>(data), qsizetype(size));
    const CommandLine line =
        CommandLine::parse(QStringList {QStringLiteral("zelvo-standup")} + text.split(u'\n'));
    demand(line.exitCode == 0 || (line.exitCode == 2 && line.endsHere), "what was refused ends with 2");
    demand(!line.endsHere || (!line.simulate && !line.testWindow), "what ends here starts nothing");
    return 0;
}
