// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace halvern::mapmaker {

/// A place in degrees: latitude north positive, longitude west positive. A run of vertices that crosses the date line
/// goes on past 180 instead of jumping to the other side.
struct Vertex {
    double lat = 0;
    double lon = 0;

    bool operator==(const Vertex&) const = default;
};

using Path = std::vector<Vertex>;

/// A frame in degrees. Left is the larger longitude, because west is positive.
struct Box {
    double top = 0;
    double left = 0;
    double bottom = 0;
    double right = 0;

    bool Holds(const Vertex& vertex) const
    {
        return vertex.lat <= top && vertex.lat >= bottom && vertex.lon <= left && vertex.lon >= right;
    }
};

/// A line as a map file holds it.
struct DrawnLine {
    int colour = 7; ///< 0 to 15
    std::string name;
    Path vertices;
};

/// The smallest box around a path; an empty path gives a box with Top below Bottom.
Box BoundsOf(const Path& path);

/// Whether two boxes share at least an edge.
bool Touch(const Box& one, const Box& other);

/// How many times coarser lines may be at a place: 1 where most stations are, more elsewhere and most in the polar
/// seas.
double Coarseness(const Vertex& place);

/// The same everywhere: 1.
inline double EvenCoarseness(const Vertex&)
{
    return 1;
}

/// Leaves out the vertices that lie nearer than `tolerance` (degrees of latitude; longitude counts by its true length)
/// to the line without them, times the coarseness there. The first and the last vertex stay.
Path Simplify(const Path& path, double tolerance, double (*coarseness)(const Vertex&) = EvenCoarseness);

/// Which vertices that leaves in. `tolerance` is told for each of them.
std::vector<bool> KeptVertices(const Path& path, const std::function<double(const Vertex&)>& tolerance);

/// The same for lines that lie side by side, which may not cross one another nor themselves afterwards: where two
/// stretches do, each gets back the vertex that it misses most, until none does. Vertices are first brought to whole
/// units, at `unitsPerDegree`, so that a map file of these units holds exactly what was looked at. Lines that cross in
/// the source, or that whole units make cross, stay as they are.
///
/// @param tolerance  for each vertex, in degrees of latitude
/// @return how many pairs of stretches still cross
std::size_t SimplifyTogether(const std::vector<Path*>& lines, int unitsPerDegree,
                             const std::function<double(const Vertex&)>& tolerance);

/// Lets a path that jumps by more than half a turn, as sources write one that crosses the date line, go on past 180
/// instead. A jump of just one full turn is a parallel around the globe and stays.
void TakeShortWays(Path& path);

/// The pieces of `path` inside `box`. The path is taken at every full turn of the globe that brings it into the box, so
/// that a box may reach past 180 degrees.
std::vector<Path> Clip(const Path& path, const Box& box);

/// Joins paths whose ends meet in the same place, to as few as there can be. Paths with different keys are never
/// joined.
struct KeyedPath {
    long key = 0;
    Path vertices;
};
std::vector<KeyedPath> JoinEnds(std::vector<KeyedPath> pieces);

/// Cuts a path into runs of at most `most` vertices; each run begins where the one before it ended.
std::vector<Path> CutToRuns(const Path& path, std::size_t most);

/// Puts vertices into the path until no two neighbours are more than `step` degrees apart on either axis.
Path Densify(const Path& path, double step);

/// Answers whether places lie inside an area given by rings, by a count of crossings over rows of ring edges.
class Area {
public:
    /// @param rings  closed runs of vertices; a ring within a ring is a hole
    explicit Area(const std::vector<Path>& rings);

    bool Holds(const Vertex& vertex) const;

private:
    struct Edge {
        Vertex from;
        Vertex to;
    };
    static constexpr int RowsPerDegree = 8;

    static std::size_t RowOf(double lat);

    std::vector<std::vector<Edge>> rows_;
};

} // namespace halvern::mapmaker
