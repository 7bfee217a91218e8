// SPDX-License-Identifier: GPL-3.0-or-later
#include "relay/Objects.h"

#include <algorithm>
#include <vector>

#include "engine/ProcessPacket.h"
#include "platform/Text.h"
#include "protocol/ObjectSchedule.h"
#include "protocol/PacketHeader.h"
#include "protocol/UtcTime.h"
#include "transmit/Send.h"

namespace halvern {
namespace {

/// A list of stages that came back from a file shorter than its objects is filled up on the way.
void SetStage(MainForm& main, int index, std::string_view stage)
{
    while (main.TransmitLst.Count() <= index) main.TransmitLst.Add(FirstObjectStage);
    main.TransmitLst.Replace(index, stage);
}

std::string LineOf(const Halvern& halvern, const std::string& path, const std::string& information)
{
    return PacketLine(halvern.Engine.OwnCall, halvern.Engine.OwnDest, path, information);
}

/// The packets of a stage, whose objects stand at the next one from now on. The lists are left before anything is told
/// or sent: a box that waits for the operator, or stores that start again, may change them.
std::vector<Packet> TakeStage(Halvern& halvern, const ObjectStep& step)
{
    auto& main = halvern.ConMdiFrm;
    std::vector<Packet> packets;
    for (int i = 0; i < std::min(main.MyObjectLst.Count(), main.TransmitLst.Count()); ++i) {
        if (main.TransmitLst.Row(i) != step.stage) continue;
        const auto& record = main.MyObjectLst.Row(i);
        const std::string information(MyObjectInformation(record));
        const auto path = ReadMyObject(record).path;
        packets.push_back({.information = information, .path = path, .psk63Line = LineOf(halvern, path, information)});
        SetStage(main, i, step.after);
    }
    return packets;
}

void SendStage(Halvern& halvern, const ObjectStep& step)
{
    auto packets = TakeStage(halvern, step);
    for (const auto& packet : packets) {
        auto line = LineOf(halvern, "", packet.information);
        ProcessPacket(halvern, line, "OBJECT");
    }
    Send(halvern, std::move(packets), Road::Radio | Road::Internet | Road::Psk63);
}

/// Counts the ticks of the slow interval. @return whether this one sends.
bool SendsNow(MainForm& main)
{
    const bool sends = main.ObjectCycle == 0;
    CountUp(main.ObjectCycle);
    if (main.ObjectCycle == SlowObjectCycle) main.ObjectCycle = 0;
    return sends;
}

} // namespace

int FindMyObject(const Halvern& halvern, std::string_view name)
{
    const auto& objects = halvern.ConMdiFrm.MyObjectLst;
    for (int i = 0; i < objects.Count(); ++i)
        if (myObjectRow::Name(objects.Row(i)) == CallField(name)) return i;
    return NotFound;
}

void AddMyObject(Halvern& halvern, const MyObject& object)
{
    auto& main = halvern.ConMdiFrm;
    main.MyObjectLst.Add(MyObjectRecord(object, DayHourMinute(UtcNow(halvern.Outside.clock))));
    SetStage(main, main.MyObjectLst.Count() - 1, FirstObjectStage);
}

void ChangeMyObject(Halvern& halvern, int index, const std::string& record)
{
    halvern.ConMdiFrm.MyObjectLst.Replace(index, record);
    SetStage(halvern.ConMdiFrm, index, FirstObjectStage);
}

void RemoveMyObject(Halvern& halvern, int index)
{
    auto& main = halvern.ConMdiFrm;
    main.MyObjectLst.Remove(index);
    if (index < main.TransmitLst.Count()) main.TransmitLst.Remove(index);
    if (main.MyObjectLst.Count() == 0) main.MyObjectTimer.Stop();
}

void ObjectTick(Halvern& halvern)
{
    auto& main = halvern.ConMdiFrm;
    auto& timer = main.MyObjectTimer;
    timer.SetEnabled(false);
    if (const auto* step = ObjectStepAt(timer.Interval())) {
        timer.SetInterval(step->next);
        if (step->interval != SlowObjectInterval || SendsNow(main)) SendStage(halvern, *step);
    }
    if (timer.Interval() > 0) timer.SetEnabled(true); // 0: the stores have started again meanwhile
}

} // namespace halvern
