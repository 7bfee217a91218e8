// SPDX-License-Identifier: GPL-3.0-or-later
#include "Topology.h"

#include <cpl_json.h>

#include <stdexcept>

namespace halvern::mapmaker {

namespace {

/// Collects the rings in the nested arrays of a polygon or a set of polygons: a ring is an array of numbers.
void CollectRings(const CPLJSONArray& arcs, std::vector<std::vector<long>>& rings)
{
    std::vector<long> ring;
    for (int i = 0; i < arcs.Size(); ++i) {
        const CPLJSONObject item = arcs[i];
        if (item.GetType() == CPLJSONObject::Type::Array)
            CollectRings(item.ToArray(), rings);
        else
            ring.push_back(item.ToInteger());
    }
    if (!ring.empty()) rings.push_back(ring);
}

Path DecodeArc(const CPLJSONArray& deltas, const CPLJSONArray& scale, const CPLJSONArray& translate)
{
    Path path;
    double x = 0;
    double y = 0;
    for (int i = 0; i < deltas.Size(); ++i) {
        const CPLJSONArray pair = deltas[i].ToArray();
        x += pair[0].ToDouble();
        y += pair[1].ToDouble();
        path.push_back(
            {y * scale[1].ToDouble() + translate[1].ToDouble(), -(x * scale[0].ToDouble() + translate[0].ToDouble())});
    }
    return path;
}

} // namespace

Topology::Topology(const std::filesystem::path& file)
{
    CPLJSONDocument document;
    if (!document.Load(file.string())) throw std::runtime_error(file.string() + ": can't be read as JSON");
    const CPLJSONObject root = document.GetRoot();
    const CPLJSONArray scale = root.GetArray("transform/scale");
    const CPLJSONArray translate = root.GetArray("transform/translate");
    const CPLJSONArray arcs = root.GetArray("arcs");
    if (root.GetString("type") != "Topology" || scale.Size() != 2 || translate.Size() != 2)
        throw std::runtime_error(file.string() + ": isn't a quantised TopoJSON file");
    for (int i = 0; i < arcs.Size(); ++i) arcs_.push_back(DecodeArc(arcs[i].ToArray(), scale, translate));
    for (const CPLJSONObject& object : root.GetObj("objects").GetChildren()) {
        std::vector<std::vector<Ring>>& areas = objects_[object.GetName()];
        const CPLJSONArray geometries = object.GetArray("geometries");
        for (int i = 0; i < geometries.Size(); ++i) {
            areas.emplace_back();
            if (const CPLJSONArray rings = geometries[i].GetArray("arcs"); rings.IsValid())
                CollectRings(rings, areas.back());
        }
    }
}

std::map<std::size_t, std::set<std::size_t>> Topology::Users(const std::string& object) const
{
    const auto found = objects_.find(object);
    if (found == objects_.end()) throw std::runtime_error("the topology has no object \"" + object + "\"");
    std::map<std::size_t, std::set<std::size_t>> users;
    for (std::size_t area = 0; area < found->second.size(); ++area)
        for (const Ring& ring : found->second[area])
            for (const long arc : ring) users[static_cast<std::size_t>(arc < 0 ? ~arc : arc)].insert(area);
    return users;
}

std::set<std::size_t> Topology::SharedArcs(const std::string& object) const
{
    std::set<std::size_t> shared;
    for (const auto& [arc, users] : Users(object))
        if (users.size() > 1) shared.insert(arc);
    return shared;
}

Path Topology::Walk(const Ring& ring) const
{
    Path path;
    for (const long number : ring) {
        const Path& arc = arcs_.at(static_cast<std::size_t>(number < 0 ? ~number : number));
        if (number < 0)
            path.insert(path.end(), arc.rbegin(), arc.rend());
        else
            path.insert(path.end(), arc.begin(), arc.end());
    }
    return path;
}

std::vector<Path> Topology::Rings(const std::string& object) const
{
    std::vector<Path> rings;
    for (const std::vector<Ring>& area : objects_.at(object))
        for (const Ring& ring : area) rings.push_back(Walk(ring));
    return rings;
}

} // namespace halvern::mapmaker
