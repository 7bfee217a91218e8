// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "app/Handlers.h"
#include "platform/simulated/Devices.h"
#include "platform/simulated/NotedDialogs.h"
#include "platform/simulated/NotedDrawing.h"
#include "platform/simulated/Time.h"
#include "state/Halvern.h"

namespace halvern::test {

/// A folder of its own, gone at the end.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    const std::string& Path() const { return path; }
    void Put(const std::string& name, std::string_view bytes) const;

private:
    std::string path;
};

/// The project's own data as an application directory.
std::string DataFolder();
/// A KISS frame, both FENDs included, for "SRC>DEST,PATH:INFO".
std::string FrameOf(std::string_view line);
/// What a KISS frame with both its FENDs says; every used entry of the path keeps its "*".
std::string LineOfFrame(const std::string& bytes);
/// Recorded traffic, or an empty text where there is none on this machine.
std::string TrafficFile(const std::string& name);

/// A station under the simulated platform: handlers connected, nothing loaded yet.
class Station {
public:
    /// @param onScreen  the dialogs it speaks by; without them what it says is noted
    explicit Station(std::string programFolder = DataFolder(), Dialogs* onScreen = nullptr);

    /// A station of call Q0OWN (SSID 0) near New York, symbol house, no path; row 0 of its stores is itself.
    void SetUp();
    /// One line as a port would hand it over.
    void Hear(std::string line, std::string_view tag = "TNC");
    /// Becomes another station, of SSID 0.
    void SetCall(const std::string& call);
    /// Types a message on the Send tab, Enter included.
    void Type(const std::string& to, const std::string& text);
    /// Presses the toggle of the TNC port and expects it to open.
    void OpenTnc();
    /// Opens the TNC and the server, logged in, and switches the gate on, both ways. No beacons.
    void OpenGate();
    /// One frame as the TNC hands it over: the text line is what was said on the air.
    void HearOnTnc(const std::string& line);
    /// Text lines of the packets that went out by the TNC since last asked; what is no frame stands as its bytes.
    std::vector<std::string> SentByRadio();
    /// What was written to a port since last asked.
    std::vector<std::string> SentBy(const Port& port);
    /// All rows of a store.
    static std::vector<std::string> Rows(const List& list);
    /// What was said since last asked, as console lines.
    std::vector<std::string> TakeSaid();

    SimulatedTime time;
    NotedDialogs dialogs;
    DiskFiles files;
    Halvern halvern;
    SimulatedPorts ports;
    NotedDrawing map, picture;

private:
    std::vector<std::string> said;
};

} // namespace halvern::test
