// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/MapRoom.h"

#include <QImageReader>

#include "forms/Glyphs.h"
#include "forms/Watching.h"
#include "platform/Files.h"

namespace halvern {

MapRoom::MapRoom(Halvern& halvern, QWidget* map) : halvern(halvern), map(map)
{
    map->setParent(this);
    map->show();
    setFocusProxy(map);
    setAutoFillBackground(true);
    auto ground = palette();
    ground.setColor(QPalette::Window, Qt::black);
    setPalette(ground);
    setMinimumSize(map->minimumSize());
    // both tell before the picture is painted, which takes the room that there is then
    WatchFor(this, halvern.ConMdiFrm.BitMapCombo, [this](const Change&) { Follow(); });
    WatchFor(this, halvern.ConMdiFrm.BitMapMenu, [this](const Change&) { Follow(); });
}

void MapRoom::Follow()
{
    const auto& main = halvern.ConMdiFrm;
    const auto file = halvern.ProgramFolder + "\\bitmap\\" + main.BitMapCombo.Text();
    shape = main.BitMapMenu.Checked() ? QImageReader(Shown(DiskFiles().Resolved(file))).size() : QSize();
    resizeEvent(nullptr);
}

void MapRoom::resizeEvent(QResizeEvent*)
{
    const auto room = shape.isEmpty() ? size() : shape.scaled(size(), Qt::KeepAspectRatio);
    map->setGeometry(QRect(rect().center() - QRect({}, room).center(), room));
}

} // namespace halvern
