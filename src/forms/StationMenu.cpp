// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/StationMenu.h"

#include <QtWidgets>

#include "forms/Glyphs.h"
#include "forms/Mail.h"
#include "forms/Watching.h"
#include "platform/Text.h"
#include "state/Rows.h"
#include "view/ChildWindows.h"
#include "view/Geometry.h"
#include "view/Ground.h"

namespace halvern {
namespace {

constexpr int MapWindow = 1, MessageWindow = 5; ///< of the View menu
/// The farthest from which a station that was asked for is still found at a glance, nautical miles.
constexpr double NearRange = 16;

int StationOf(const Halvern& halvern, const std::string& call)
{
    return call.empty() ? NotFound : halvern.PositionFrm.PosLst.Find(CallField(call));
}

/// Switches one of the View menu's windows on and brings it to the front.
void Raise(Halvern& halvern, const QWidget* from, int window)
{
    auto& form = ChildWindow(halvern, window);
    if (!form.Visible()) FromScreen(form, [&] { SetWindowOn(halvern, window, true); });
    auto* raised = from->window()->findChild<QMdiSubWindow*>(Shown(form.Name()));
    if (raised != nullptr && raised->mdiArea() != nullptr) raised->mdiArea()->setActiveSubWindow(raised);
}

void ShowInformationOf(Halvern& halvern, const std::string& call)
{
    const int station = StationOf(halvern, call);
    if (station == NotFound) return;
    halvern.Map.PopStation = station;
    FromScreen(halvern.ConMdiFrm.InfoMenu, [&] { halvern.ConMdiFrm.InfoMenu.Click(); });
}

} // namespace

std::string CallInFront(std::string_view row)
{
    return std::string(TrimmedRight(stationRow::Call(row)));
}

std::string SourceOf(std::string_view row)
{
    const auto end = row.find('>');
    return std::string(row.substr(0, end == std::string_view::npos ? 0 : end));
}

void ShowOnMap(Halvern& halvern, const QWidget* from, const std::string& call)
{
    const int station = StationOf(halvern, call);
    if (station == NotFound) return; // the stores were emptied meanwhile
    const auto place = PlaceOfRow(halvern.PositionFrm.PosLst.Row(station));
    Raise(halvern, from, MapWindow);
    FromScreen(halvern.MapFrm, [&] {
        GoToView(halvern, static_cast<float>(place.lat), static_cast<float>(place.lon),
                 std::min(halvern.Map.MapRange, NearRange));
    });
}

void ServeStations(RowsView* view, Halvern& halvern, const CallOfRow& callOf, StationAct act)
{
    view->Offers = [view, &halvern, callOf](QMenu& menu, const std::string& row) {
        const auto call = callOf(row);
        const bool known = StationOf(halvern, call) != NotFound;
        const auto offer = [&](const QString& words, bool possible, const std::function<void()>& chosen) {
            menu.addAction(words, view, chosen)->setEnabled(possible);
        };
        offer(QObject::tr("&Show on the Map"), known, [&halvern, view, call] { ShowOnMap(halvern, view, call); });
        offer(QObject::tr("&Message..."), !call.empty() && call != halvern.Engine.OwnCall,
              [&halvern, view, call] { WriteTo(halvern, view, call); });
        offer(QObject::tr("&Information"), known, [&halvern, call] { ShowInformationOf(halvern, call); });
        menu.addSeparator();
    };
    QObject::connect(view, &QAbstractItemView::doubleClicked, view, [=, &halvern](const QModelIndex& index) {
        const auto& rows = view->Rows();
        const auto* sorted = static_cast<const SortedRows*>(view->model());
        act(halvern, view, callOf(rows.RowText(sorted->mapToSource(index).row())));
    });
}

void WriteTo(Halvern& halvern, const QWidget* from, const std::string& call)
{
    auto& form = halvern.MessageFrm;
    Raise(halvern, from, MessageWindow);
    FromScreen(form.SSTab2, [&] { form.SSTab2.Select(SendTab); });
    FromScreen(form.SendCallTxt, [&] { form.SendCallTxt.SetText(call); });
    if (auto* text = from->window()->findChild<QLineEdit*>(Shown(form.MsgTxt.Name()))) text->setFocus();
}

} // namespace halvern
