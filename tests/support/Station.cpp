// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Station.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <utility>

#include "engine/ProcessPacket.h"
#include "platform/Text.h"
#include "protocol/Ax25.h"

namespace fs = std::filesystem;

namespace halvern::test {

TemporaryFolder::TemporaryFolder()
{
    auto pattern = (fs::temp_directory_path() / "halvern-XXXXXX").string();
    path = ::mkdtemp(pattern.data());
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    fs::remove_all(path, ignored);
}

void TemporaryFolder::Put(const std::string& name, std::string_view bytes) const
{
    fs::create_directories((fs::path(path) / name).parent_path());
    std::ofstream(fs::path(path) / name, std::ios::binary) << bytes;
}

std::string DataFolder()
{
    return std::string(HALVERN_SOURCE) + "/data";
}

std::string TrafficFile(const std::string& name)
{
    const char* folder = std::getenv("HALVERN_TRAFFIC");
    const auto file = fs::path(folder != nullptr ? folder : HALVERN_SOURCE "/../shared/traffic") / name;
    return fs::exists(file) ? file.string() : std::string{};
}

std::string FrameOf(std::string_view line)
{
    const auto colon = line.find(':');
    const auto header = line.substr(0, colon);
    const auto arrow = header.find('>');
    const auto comma = std::min(header.find(','), header.size());
    return BuildFrame(header.substr(arrow + 1, comma - arrow - 1), header.substr(0, arrow), Columns(header, comma + 2),
                      line.substr(colon + 1))
        .bytes;
}

std::string LineOfFrame(const std::string& bytes)
{
    if (bytes.size() < 3 || bytes.substr(0, 2) != std::string("\xC0\0", 2) || bytes.back() != '\xC0') return bytes;
    auto frame = ReadFrame(bytes.substr(2, bytes.size() - 3));
    if (!frame) return bytes;
    frame->used = 0;
    return TextOf(*frame);
}

Station::Station(std::string programFolder, Dialogs* onScreen)
    : halvern({time, onScreen != nullptr ? *onScreen : dialogs, files}, std::move(programFolder)), ports(halvern.All),
      map(halvern.MapFrm.Map1), picture(halvern.MapFrm.Pic1)
{
    dialogs.Say = [this](const std::string& line) { said.push_back(line); };
    dialogs.PassTime = [this](int milliseconds) { time.Wait(milliseconds); };
    time.Drive(halvern.All);
    ConnectHandlers(halvern);
}

void Station::SetUp()
{
    auto& setUp = halvern.SetUpfrm;
    const std::pair<TextField*, const char*> texts[] = {
        {&setUp.CallSignTxt, "Q0OWN"}, {&setUp.LatDegtxt, "40"},   {&setUp.LatMintxt, "49"},  {&setUp.LatDectxt, "14"},
        {&setUp.LatSigntxt, "N"},      {&setUp.LonDegtxt, "073"},  {&setUp.LonMintxt, "08"},  {&setUp.LonDectxt, "41"},
        {&setUp.LonSigntxt, "W"},      {&setUp.CommentTXT, "own"}, {&setUp.StatusTXT, "here"}};
    for (const auto& [field, text] : texts) field->SetText(text);
    setUp.SymbolCombo.Preselect(setUp.SymbolCombo.IndexOf("House VHF /-"));
    halvern.Engine.OwnCall = "Q0OWN";
}

void Station::Hear(std::string line, std::string_view tag)
{
    ProcessPacket(halvern, line, tag);
}

void Station::SetCall(const std::string& call)
{
    halvern.SetUpfrm.CallSignTxt.SetText(call);
    halvern.Engine.OwnCall = call;
}

void Station::Type(const std::string& to, const std::string& text)
{
    auto& form = halvern.MessageFrm;
    form.SendCallTxt.SetText(to);
    form.MsgTxt.SetText(text);
    form.MsgTxt.Press('\r');
}

void Station::OpenTnc()
{
    halvern.ConMdiFrm.PortTnc.Click();
    if (!halvern.ConMdiFrm.MSComm1.IsOpen()) throw std::logic_error("the TNC port did not open");
}

void Station::OpenGate()
{
    auto& main = halvern.ConMdiFrm;
    auto& setUp = halvern.SetUpfrm;
    OpenTnc();
    setUp.IntDomainCombo.SetText("server");
    main.PortIp.Click();
    main.InternetSoc.Arrived("# server\r\n");
    main.Timer2.Stop();
    setUp.IgateOpt.Select(1);
    setUp.IgateBIOpt.Select(1);
    halvern.Engine.IgateOn = true;
    SentBy(main.InternetSoc);
}

void Station::HearOnTnc(const std::string& line)
{
    halvern.ConMdiFrm.MSComm1.Arrived(FrameOf(line));
}

std::vector<std::string> Station::SentByRadio()
{
    auto sent = SentBy(halvern.ConMdiFrm.MSComm1);
    for (auto& bytes : sent) bytes = LineOfFrame(bytes);
    return sent;
}

std::vector<std::string> Station::SentBy(const Port& port)
{
    return ports.Line(port)->TakeSent();
}

std::vector<std::string> Station::Rows(const List& list)
{
    std::vector<std::string> rows;
    for (int i = 0; i < list.Count(); ++i) rows.push_back(list.Row(i));
    return rows;
}

std::vector<std::string> Station::TakeSaid()
{
    return std::exchange(said, {});
}

} // namespace halvern::test
