// SPDX-License-Identifier: GPL-3.0-or-later
#include "Gshhg.h"

#include <netcdf.h>

#include <algorithm>
#include <map>
#include <stdexcept>

namespace halvern::mapmaker {

namespace {

/// A netCDF file from which whole variables are read.
class BinnedFile {
public:
    explicit BinnedFile(const std::filesystem::path& file) : name_(file.string())
    {
        Check(nc_open(name_.c_str(), NC_NOWRITE, &id_));
    }

    ~BinnedFile() { nc_close(id_); }

    BinnedFile(const BinnedFile&) = delete;
    BinnedFile& operator=(const BinnedFile&) = delete;

    /// All values of a variable of any number type.
    std::vector<double> Numbers(const char* variable) const
    {
        int var = 0;
        int dimension = 0;
        std::size_t length = 0;
        Check(nc_inq_varid(id_, variable, &var));
        Check(nc_inq_vardimid(id_, var, &dimension));
        Check(nc_inq_dimlen(id_, dimension, &length));
        std::vector<double> values(length);
        Check(nc_get_var_double(id_, var, values.data()));
        return values;
    }

    /// All values of a variable whose 16 bits count from 0 to 65535.
    std::vector<double> Unsigned(const char* variable) const
    {
        std::vector<double> values = Numbers(variable);
        for (double& value : values)
            if (value < 0) value += 65536;
        return values;
    }

private:
    void Check(int status) const
    {
        if (status != NC_NOERR) throw std::runtime_error(name_ + ": " + nc_strerror(status));
    }

    std::string name_;
    int id_ = -1;
};

/// The bins, segments and points that all three files have in common.
class Segments {
public:
    explicit Segments(const BinnedFile& file)
        : binSize_(file.Numbers("Bin_size_in_minutes")[0] / 60),
          columns_(static_cast<std::size_t>(file.Numbers("N_bins_in_360_longitude_range")[0])),
          firstPoint_(file.Numbers("Id_of_first_point_in_a_segment")),
          lon_(file.Unsigned("Relative_longitude_from_SW_corner_of_bin")),
          lat_(file.Unsigned("Relative_latitude_from_SW_corner_of_bin")), bin_(firstPoint_.size())
    {
        const std::vector<double> first = file.Numbers("Id_of_first_segment_in_a_bin");
        const std::vector<double> count = file.Unsigned("N_segments_in_a_bin");
        for (std::size_t bin = 0; bin < first.size(); ++bin)
            for (std::size_t i = 0; i < static_cast<std::size_t>(count[bin]); ++i)
                bin_.at(static_cast<std::size_t>(first[bin]) + i) = bin;
    }

    std::size_t Count() const { return bin_.size(); }

    Path Vertices(std::size_t segment, std::size_t points) const
    {
        const double west = static_cast<double>(bin_[segment] % columns_) * binSize_;
        const double south = 90 - static_cast<double>(bin_[segment] / columns_ + 1) * binSize_;
        Path path;
        path.reserve(points);
        const auto first = static_cast<std::size_t>(firstPoint_[segment]);
        for (std::size_t i = first; i < first + points; ++i)
            path.push_back({south + lat_.at(i) * binSize_ / 65535, -(west + lon_.at(i) * binSize_ / 65535)});
        return path;
    }

private:
    double binSize_;
    std::size_t columns_;
    std::vector<double> firstPoint_;
    std::vector<double> lon_;
    std::vector<double> lat_;
    std::vector<std::size_t> bin_;
};

std::vector<Feature> LoadRanked(const std::filesystem::path& file, const std::map<int, Kind>& kindOfLevel)
{
    const BinnedFile binned(file);
    const Segments segments(binned);
    const std::vector<double> points = binned.Unsigned("N_points_for_a_segment");
    const std::vector<double> levels = binned.Numbers("Hierarchial_level_of_a_segment");
    std::vector<KeyedPath> pieces;
    for (std::size_t i = 0; i < segments.Count(); ++i)
        if (points[i] > 1 && kindOfLevel.contains(static_cast<int>(levels[i])))
            pieces.push_back({static_cast<long>(levels[i]), segments.Vertices(i, static_cast<std::size_t>(points[i]))});
    std::vector<Feature> features;
    for (KeyedPath& path : JoinEnds(std::move(pieces))) {
        const int level = static_cast<int>(path.key);
        features.push_back({kindOfLevel.at(level), level, 0, std::move(path.vertices)});
    }
    return features;
}

} // namespace

std::vector<Feature> LoadShores(const std::filesystem::path& file)
{
    constexpr int GroundingLine = 6;
    const BinnedFile binned(file);
    const Segments segments(binned);
    const std::vector<double> packed = binned.Numbers("Embedded_npts_levels_exit_entry_for_a_segment");
    const std::vector<double> polygons = binned.Numbers("Id_of_GSHHS_ID");
    const std::vector<double> areas = binned.Numbers("The_km_squared_area_of_polygons");
    std::map<long, int> levels;
    std::vector<KeyedPath> pieces;
    for (std::size_t i = 0; i < segments.Count(); ++i) {
        // Bits 0-2 and 3-5 say where the segment leaves and enters the bin, 6-8 its level; above is its length.
        const auto word = static_cast<long>(packed[i]);
        const int level = static_cast<int>(word >> 6 & 7);
        const auto points = static_cast<std::size_t>(word >> 9);
        if (level == GroundingLine || points < 2) continue;
        levels[static_cast<long>(polygons[i])] = level;
        pieces.push_back({static_cast<long>(polygons[i]), segments.Vertices(i, points)});
    }
    std::vector<Feature> features;
    for (KeyedPath& path : JoinEnds(std::move(pieces)))
        features.push_back({levels[path.key] == 1 ? Kind::Coast : Kind::Lake, 0,
                            areas.at(static_cast<std::size_t>(path.key)), std::move(path.vertices)});
    return features;
}

std::vector<Feature> LoadRivers(const std::filesystem::path& file)
{
    std::map<int, Kind> kinds;
    for (int level = 0; level <= 10; ++level) kinds[level] = Kind::River;
    return LoadRanked(file, kinds);
}

std::vector<Feature> LoadBorders(const std::filesystem::path& file)
{
    return LoadRanked(file, {{1, Kind::Country}, {2, Kind::FirstLevel}});
}

} // namespace halvern::mapmaker
