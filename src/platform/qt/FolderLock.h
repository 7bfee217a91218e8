// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLockFile>
#include <string>

namespace halvern {

/// Keeps a second program off a station's folder, where it would undo what the first one saves.
class FolderLock {
public:
    /// The folder is not taken yet.
    explicit FolderLock(const std::string& folder);

    /// Takes the folder for as long as this lives. What a program left behind that did not end in order is no obstacle,
    /// and a folder that can't be written to is free to all.
    /// @return whose the folder is, in words for the operator, or an empty text
    std::string Take();

private:
    std::string Owner() const;

    const std::string folder;
    QLockFile lock;
};

} // namespace halvern
