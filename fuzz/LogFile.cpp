// SPDX-License-Identifier: GPL-3.0-or-later
// The bytes of a file that is played back, packed or plain: lines come out of it, each without its end and none longer
// than a line may be, and of a plain file no more than went in.
#include <fstream>

#include "LivingStation.h"
#include "platform/LineFiles.h"

using namespace halvern;

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    static const auto* const folder = new test::TemporaryFolder;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const auto path = folder->Path() + "/log";
    std::ofstream(path, std::ios::binary) << bytes;
    std::string trouble;
    const auto file = OpenLinesForInput(path, trouble);
    Require(file && trouble.empty(), "a plain file opens");
    const bool packed = bytes.starts_with("\x1F\x8B");
    std::size_t got = 0;
    std::uint64_t lines = 0;
    for (std::string_view line; file->ReadLine(line); ++lines) {
        Require(line.size() <= InputFile::LongestLine, "a line has its longest");
        Require(line.find('\n') == std::string_view::npos, "a line holds no end of a line");
        got += line.size();
    }
    const auto soFar = file->SoFar();
    Require(soFar.lines == lines && soFar.of == size, "what was read is counted");
    Require(packed || (got <= size && soFar.bytes == size && file->Trouble().empty()),
            "a plain file is read to its end");
    return 0;
}
