// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/FolderLock.h"

#include <QSysInfo>

namespace halvern {

FolderLock::FolderLock(const std::string& folder)
    : folder(folder), lock(QString::fromStdString(folder + "/Halvern.lock"))
{
    lock.setStaleLockTime(0); // a station runs for months
}

std::string FolderLock::Take()
{
    if (lock.tryLock() || lock.error() != QLockFile::LockFailedError) return {};
    if (auto owner = Owner(); !owner.empty())
        return "The folder " + folder + " is in use by " + owner +
               ". Two programs on one folder would undo each other's settings, so this one opens nothing.";
    lock.setStaleLockTime(1); // a file that says nothing, as a power failure leaves it: then its age counts
    if (lock.tryLock() || lock.error() != QLockFile::LockFailedError) return {};
    return "The folder " + folder + " is in use by another program, so this one opens nothing.";
}

/// Who holds the lock, or an empty text where the file does not say so.
std::string FolderLock::Owner() const
{
    qint64 process = 0;
    QString host, program;
    if (!lock.getLockInfo(&process, &host, &program)) return {};
    const auto words = program + ", process " + QString::number(process);
    return (host.isEmpty() || host == QSysInfo::machineHostName() ? words : words + " on " + host).toStdString();
}

} // namespace halvern
