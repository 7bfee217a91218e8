// SPDX-License-Identifier: GPL-3.0-or-later
#include "protocol/Ax25.h"

#include <algorithm>
#include <vector>

#include "platform/EndMark.h"
#include "platform/Text.h"

namespace halvern {
namespace {

constexpr char Escape = '\xDB';
constexpr char EscapedFrameEnd = '\xDC';
constexpr char EscapedEscape = '\xDD';
constexpr char UnnumberedInformation = 3; // the control byte
constexpr char NoLayerThree = '\xF0';     // the PID

constexpr std::size_t CallLength = 6;
constexpr std::size_t AddressLength = 7;
constexpr std::size_t MostDigis = 8;
constexpr std::size_t SourceAt = 8, PathAt = 15; // positions in a frame

constexpr int SsidBase = 96;      // the two reserved bits, which are 1
constexpr int Repeated = 128;     // in a digipeater's SSID byte; in the destination's it says "command"
constexpr int LastAddressBit = 1; // in the SSID byte of the last address

constexpr const char* DestSsidTooHigh =
    "Your Destination SSID is greater than 15. This is not allowed. Please change your Destination SSID to be a number "
    "that is lower than 16.";
constexpr const char* DestTooLong =
    "Your Destination Call Sign has more than 6 Characters. This is not allowed. Please change your Destination Call "
    "Sign to have no more than 6 Characters Max.";
constexpr const char* SourceSsidTooHigh =
    "Your MYCall SSID is greater than 15. This is not allowed. Please change your MYcall SSID to be a number that is "
    "lower than 16.";
constexpr const char* SourceTooLong =
    "Your MyCall Sign has more than 6 Characters. This is not allowed. Please change your MyCall Sign to have no more "
    "than 6 Characters Max.";
constexpr const char* TooManyDigis =
    "You cannot have more than 8 Digipeater Call Signs. Please Reduce the number of Digipeaters.";
constexpr const char* DigiSsidTooHigh =
    "One or more of your Digipeater SSID is greater than 15. This is not allowed. Please change the offending "
    "Digipeater SSID to be a number that is lower than 16.";
constexpr const char* DigiTooLong =
    "One or more of Your Digipeater Call Sign has more than 6 Characters. This is not allowed. Please change your "
    "Digipeater Call Sign to have no more than 6 Characters Max.";

// --- from bytes to text ----------------------------------------------------------------------------------------------

int ByteAt(std::string_view frame, std::size_t position)
{
    return static_cast<unsigned char>(ColumnAt(frame, position));
}

/// The position of a byte that may only stand `first` bytes into the frame or whole addresses behind that; 0 where the
/// first one found stands elsewhere.
std::size_t PositionBehindAddresses(std::string_view frame, char byte, std::size_t first)
{
    const auto position = PositionOf(frame, byte, first);
    if (position == 0 || (position - first) % AddressLength != 0) return 0;
    return (position - first) / AddressLength <= MostDigis ? position : 0;
}

std::string CallAt(std::string_view frame, std::size_t position)
{
    std::string call;
    for (std::size_t i = 0; i < CallLength; ++i)
        call += static_cast<char>(RoundHalfToEven(ByteAt(frame, position + i) / 2.0));
    return std::string(TrimmedRight(call));
}

/// @param byte  an SSID byte without its high bit and without the last-address bit
std::string SsidText(int byte)
{
    const long ssid = RoundHalfToEven((byte - SsidBase) / 2.0);
    return ssid > 0 ? "-" + std::to_string(ssid) : std::string{};
}

int WithoutHighBit(int byte)
{
    return byte >= Repeated ? byte - Repeated : byte;
}

void ReadPath(std::string_view frame, std::size_t control, ReceivedFrame& read)
{
    for (auto position = PathAt; position < control; position += AddressLength) {
        const bool last = position + AddressLength == control;
        const int ssid = ByteAt(frame, position + CallLength) - (last ? LastAddressBit : 0);
        read.path += "," + CallAt(frame, position) + SsidText(WithoutHighBit(ssid));
        if (ssid < Repeated) continue;
        read.path += "*";
        ++read.used;
    }
}

} // namespace

std::optional<ReceivedFrame> ReadFrame(std::string frame)
{
    const auto control = PositionBehindAddresses(frame, UnnumberedInformation, PathAt);
    if (control == 0 || PositionBehindAddresses(frame, NoLayerThree, PathAt + 1) == 0) return {};
    if (PositionOf(frame, Escape) != 0) KissUnescape(frame);
    if (frame.size() + 1 < control) return {}; // there were escapes among the addresses, and now some bytes are missing

    ReceivedFrame read;
    read.dest = CallAt(frame, 1) + SsidText(WithoutHighBit(ByteAt(frame, AddressLength)));
    const int sourceSsid = ByteAt(frame, SourceAt + CallLength) - (control == PathAt ? LastAddressBit : 0);
    read.source = CallAt(frame, SourceAt) + SsidText(WithoutHighBit(sourceSsid));
    ReadPath(frame, control, read);
    read.info = Columns(frame, control + 2);
    return read;
}

std::string TextOf(ReceivedFrame frame)
{
    for (; frame.used > 1; --frame.used)
        if (const auto mark = frame.path.find('*'); mark != std::string::npos) frame.path.erase(mark, 1);
    return frame.source + ">" + frame.dest + frame.path + ":" + frame.info;
}

void KissUnescape(std::string& frame)
{
    std::string plain;
    plain.reserve(frame.size());
    for (std::size_t i = 0; i < frame.size(); ++i) {
        if (frame[i] != Escape) {
            plain += frame[i];
        } else if (++i < frame.size()) {
            if (frame[i] == EscapedFrameEnd) plain += FrameEnd;
            if (frame[i] == EscapedEscape) plain += Escape;
        }
    }
    frame = std::move(plain);
}

// --- from text to bytes ----------------------------------------------------------------------------------------------

std::string KissEscaped(std::string_view bytes)
{
    std::string escaped;
    escaped.reserve(bytes.size());
    for (const char byte : bytes) {
        if (byte == FrameEnd)
            escaped += {Escape, EscapedFrameEnd};
        else if (byte == Escape)
            escaped += {Escape, EscapedEscape};
        else
            escaped += byte;
    }
    return escaped;
}

namespace {

/// A call as an address field has it.
struct Address {
    std::string call; ///< padded to 6; longer where the operator's was
    int ssidByte = SsidBase;
    bool ssidFits = true;
};

Address AddressOf(std::string_view text)
{
    Address address;
    const auto dash = PositionOf(text, '-');
    if (dash != 0) {
        const long byte = RoundHalfToEven(SsidBase + 2 * LeadingNumber(Columns(text, dash + 1)));
        address.ssidFits = byte >= 0 && byte + Repeated <= 255;
        address.ssidByte = address.ssidFits ? static_cast<int>(byte) : SsidBase;
        text = text.substr(0, dash - 1);
    }
    address.call = Padded(text, std::max(text.size(), CallLength));
    return address;
}

/// Seven bits a character, shifted; a character of eight loses its highest.
std::string CallBytes(std::string_view call)
{
    std::string bytes;
    for (const char character : call) bytes += static_cast<char>(static_cast<unsigned char>(character) << 1);
    return KissEscaped(bytes);
}

BuiltFrame Refused(const char* text)
{
    return {{}, {}, text};
}

/// What stands between the source's SSID byte and the control byte, in `bytes`, or a refusal.
BuiltFrame BuildPath(std::string_view path)
{
    const auto entries = SplitAt(path);
    if (entries.size() > MostDigis) return Refused(TooManyDigis);
    std::string table;
    std::vector<int> ssids;
    for (const auto& entry : entries) {
        const bool used = Holds(entry, "*");
        const auto digi = AddressOf(std::string_view(entry).substr(0, entry.size() - (used ? 1 : 0)));
        if (!digi.ssidFits) return Refused(DigiSsidTooHigh);
        for (const char character : std::string_view(digi.call).substr(0, CallLength)) {
            if (table.size() == MostDigis * CallLength) return Refused(DigiTooLong); // guards the table itself
            table += character;
        }
        ssids.push_back(digi.ssidByte + (used ? Repeated : 0));
    }
    ssids.back() += LastAddressBit;
    BuiltFrame built;
    for (std::size_t i = 0; i < ssids.size(); ++i)
        built.bytes += CallBytes(table.substr(i * CallLength, CallLength)) + static_cast<char>(ssids[i]);
    return built;
}

} // namespace

BuiltFrame BuildFrame(std::string_view dest, std::string_view src, std::string_view path, std::string_view payload)
{
    const auto to = AddressOf(dest);
    if (!to.ssidFits) return Refused(DestSsidTooHigh);
    if (to.call.size() > CallLength) return Refused(DestTooLong);
    const auto from = AddressOf(src);
    if (!from.ssidFits) return Refused(SourceSsidTooHigh);
    if (from.call.size() > CallLength) return Refused(SourceTooLong);

    BuiltFrame built = path.empty() ? BuiltFrame{} : BuildPath(path);
    if (built.refusal != nullptr) return built;
    const int fromSsid = from.ssidByte + (path.empty() ? LastAddressBit : 0);
    built.payload = KissEscaped(payload);
    built.bytes = std::string{FrameEnd, '\0'} + CallBytes(to.call) + static_cast<char>(to.ssidByte + Repeated) +
                  CallBytes(from.call) + static_cast<char>(fromSsid) + built.bytes +
                  std::string{UnnumberedInformation, NoLayerThree} + built.payload + FrameEnd;
    return built;
}

} // namespace halvern
