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

    /// The arcs that only one area of `object` uses: its outer line.
    std::set<std::size_t> OuterArcs(const std::string& object) const;

    const Path& Arc(std::size_t arc) const { return arcs_.at(arc); }

    /// The closed rings of the area whose id is `id` in `object`; for an empty id those of all areas.
    std::vector<Path> Rings(const std::string& object, const std::string& id) const;

private:
    using Ring = std::vector<long>; ///< numbers of arcs, in the file's way: ~n for arc n walked backwards

    struct AreaArcs {
        std::string id;
        std::vector<Ring> rings;
    };

    std::map<std::size_t, std::set<std::size_t>> Users(const std::string& object) const;

    std::vector<Path> arcs_;
    std::map<std::string, std::vector<AreaArcs>> objects_;
};

} // namespace halvern::mapmaker
