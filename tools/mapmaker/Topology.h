// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Feature.h"

#include <filesystem>
#include <map>
#include <set>

namespace halvern::mapmaker {

/// A TopoJSON file's arcs and who uses them. An arc that two areas use is the border between them, drawn once.
class Topology {
public:
    /// Throws std::runtime_error with the file's name when it isn't a quantised TopoJSON file.
    explicit Topology(const std::filesystem::path& file);

    /// The arcs that at least two areas of `object` share.
    std::set<std::size_t> SharedArcs(const std::string& object) const;

    const Path& Arc(std::size_t arc) const { return arcs_.at(arc); }

    /// The closed rings of all areas of `object`.
    std::vector<Path> Rings(const std::string& object) const;

private:
    using Ring = std::vector<long>; ///< numbers of arcs, in the file's way: ~n for arc n walked backwards

    Path Walk(const Ring& ring) const;
    std::map<std::size_t, std::set<std::size_t>> Users(const std::string& object) const;

    std::vector<Path> arcs_;
    std::map<std::string, std::vector<std::vector<Ring>>> objects_; ///< of each object the rings of its areas
};

} // namespace halvern::mapmaker
