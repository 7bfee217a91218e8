// SPDX-License-Identifier: GPL-3.0-or-later
// Packets with good headers and information fields that are nearly good: every kind in random order, with what is
// queued, sent and answered on the way, and with the stores emptied in between.
#include <array>
#include <cstdint>

#include <fuzzer/FuzzedDataProvider.h>

#include "LivingStation.h"
#include "engine/ProcessPacket.h"
#include "engine/ResetStores.h"

using namespace halvern;

namespace {

constexpr std::array Sources{"Q0OWN", "Q0OWN-5", "Q1ABC", "Q1ABC-9", "Q2ABC-15", "q3abc", "Q4LONGER", "Q5A"};
constexpr std::array Destinations{"APRS",   "APHV01", "S32U6T", "3325VT", "A32U6L", "GPSMV",
                                  "GPSOD7", "GPSBC",  "RESORC", "SPC",    "ID"};
constexpr std::array Paths{"", ",WIDE1-1", ",Q1DIG*,WIDE2-1", ",TCPIP*,qAC,Q1SRV", ",WIDE1-1,Q0OWN", ",-1", ",A,B"};
constexpr std::array Tags{"TNC", "SOUND", "PSK63", "TCPIP", "MAP", "IMPORT"};
constexpr std::array Infos{"!4903.50N/07201.75W-fixed",
                           "=4903.50N/07201.75W>088/036",
                           "@092345z4903.50N\\07201.75W#PHG5132",
                           "/092345z49  .  N/072  .  W_220/004g005t077",
                           "`(_fn\"Oj/]road",
                           "'(_fn\"Oj/",
                           "$GPRMC,210000,A,4049.14,N,07308.41,W,12.5,088.4,010100,,*7C",
                           "$GPGGA,210000,4049.14,N,07308.41,W,1,05,1.5,10,M,-20,M,,*7C",
                           "$GPGLL,4049.14,N,07308.41,W,210000,A*1C",
                           "$ULTW0000",
                           ":Q0OWN    :hello{12",
                           ":Q0OWN    :ack12",
                           ":Q0OWN    :ACK1",
                           ":Q0OWN-5  :near",
                           ":Q1ABC    :between others{3",
                           ":BLN1     :first",
                           ":BLNA     :lettered",
                           ":BLN12    :twelfth",
                           ":CQ       :everybody",
                           ":Q0OWN    :?APRS?",
                           ":Q0OWN    :?APRSD",
                           ":Q0OWN    :?APRSH Q1ABC",
                           ":Q0OWN    :?APRST",
                           ":Q0OWN    :?APRSM",
                           ";LEADER   *092345z4903.50N/07201.75W>088/036",
                           ";LEADER   _092345z4903.50N/07201.75W>",
                           ";MINE     *092345z4903.50N/07201.75W>",
                           ">status",
                           "?APRS?",
                           "?IGATE?",
                           "}Q3ABC>APRS,TCPIP*:!4903.50N/07201.75W-",
                           "}}}",
                           "T#001,1,2,3,4,5,00000000",
                           ")ITEM!4903.50N/07201.75W-",
                           "_10090556c220s004",
                           "<unknown"};
constexpr std::array Resets{"ImportLog", "Search1", "RestoreMenu", "JustOk", "StartAgain", "PosSub", "Clear"};

template <std::size_t Count> const char* Pick(FuzzedDataProvider& data, const std::array<const char*, Count>& choices)
{
    return choices[data.ConsumeIntegralInRange<std::size_t>(0, Count - 1)];
}

/// A good information field with a few bytes changed, cut or put in.
std::string NearlyGood(FuzzedDataProvider& data)
{
    std::string info = Pick(data, Infos);
    for (int edits = data.ConsumeIntegralInRange(0, 3); edits > 0 && !info.empty(); --edits) {
        const auto at = data.ConsumeIntegralInRange<std::size_t>(0, info.size() - 1);
        switch (data.ConsumeIntegralInRange(0, 2)) {
        case 0:
            info[at] = data.ConsumeIntegral<char>();
            break;
        case 1:
            info.erase(at, data.ConsumeIntegralInRange<std::size_t>(1, 8));
            break;
        case 2:
            info.insert(at, data.ConsumeRandomLengthString(6));
            break;
        }
    }
    return info;
}

void QueueSomething(Halvern& halvern)
{
    halvern.MessageFrm.OutMsg.Add(":Q1ABC    unproto APHV01 via NONE:hello{12");
    halvern.MessageFrm.MsgToYouLst.Add("Q0OWN>Q1ABC:12.hello");
    halvern.ConMdiFrm.MyObjectLst.Add(";MINE     *092345z4903.50N/07201.75W>|");
    halvern.ConMdiFrm.TransmitLst.Add("A");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    auto& station = LivingStation();
    auto& halvern = station.halvern;
    halvern.ConMdiFrm.SoundSoc.Connect();
    FuzzedDataProvider data(bytes, size);
    while (data.remaining_bytes() > 0) {
        switch (data.ConsumeIntegralInRange(0, 19)) {
        case 0:
            ResetStores(halvern, Pick(data, Resets));
            break;
        case 1:
            QueueSomething(halvern);
            break;
        case 2:
            halvern.Engine.ReviewMode = data.ConsumeBool();
            break;
        default:
            auto line = std::string(Pick(data, Sources)) + ">" + Pick(data, Destinations) + Pick(data, Paths) + ":" +
                        NearlyGood(data);
            ProcessPacket(halvern, line, Pick(data, Tags));
        }
    }
    CheckInvariants(halvern);
    for (const Control* port :
         {static_cast<Control*>(&halvern.ConMdiFrm.SoundSoc), static_cast<Control*>(&halvern.ConMdiFrm.Psk63Soc)})
        station.ports.Line(*port)->TakeSent();
    if (halvern.PositionFrm.PosLst.Count() > 200) ResetStores(halvern, "Clear");
    return 0;
}
