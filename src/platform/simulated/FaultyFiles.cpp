// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/simulated/FaultyFiles.h"

#include "platform/Text.h"

namespace halvern {

class FaultyFiles::Output final : public OutputFile {
public:
    Output(FaultyFiles& files, std::unique_ptr<OutputFile> under) : files(files), under(std::move(under)) {}
    bool PrintLine(std::string_view line) override
    {
        return files.TakeRoom(line.size() + CrLf.size()) && under->PrintLine(line);
    }

private:
    FaultyFiles& files;
    std::unique_ptr<OutputFile> under;
};

bool FaultyFiles::TakeRoom(std::size_t bytes)
{
    if (bytes > room) return false;
    room -= bytes;
    return true;
}

std::optional<std::string> FaultyFiles::Read(const std::string& path) const
{
    const auto name = Resolved(path);
    if (unreadable.contains(name)) return {};
    auto bytes = under.Read(path);
    const auto length = lengths.find(name);
    if (bytes && length != lengths.end() && length->second < bytes->size()) bytes->resize(length->second);
    return bytes;
}

std::string FaultyFiles::Write(const std::string& path, std::string_view bytes)
{
    if (!TakeRoom(bytes.size())) return "No space left on device";
    return under.Write(path, bytes);
}

std::unique_ptr<OutputFile> FaultyFiles::OpenForOutput(const std::string& path)
{
    auto file = under.OpenForOutput(path);
    if (file == nullptr) return nullptr;
    return std::make_unique<Output>(*this, std::move(file));
}

} // namespace halvern
