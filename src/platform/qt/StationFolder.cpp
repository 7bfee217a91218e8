// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/StationFolder.h"

#include <QCoreApplication>
#include <QStandardPaths>
#include <filesystem>

#include "platform/ApplicationFolder.h"

namespace halvern {

std::string StationFolder(const QStringList& named)
{
    if (named.isEmpty()) {
        const auto userData = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
        return ApplicationFolder(QCoreApplication::applicationDirPath().toStdString(), userData.toStdString());
    }
    auto folder = std::filesystem::absolute(named[0].toStdString()).string();
    while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
    return folder;
}

} // namespace halvern
