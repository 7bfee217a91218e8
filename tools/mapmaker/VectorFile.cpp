// SPDX-License-Identifier: GPL-3.0-or-later
#include "VectorFile.h"

#include "Output.h"

#include <ogrsf_frmts.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <memory>
#include <stdexcept>

namespace halvern::mapmaker {

namespace {

constexpr std::size_t ProgressSteps = 100;

struct Closer {
    void operator()(GDALDataset* dataset) const { GDALClose(dataset); }
};

struct Destroyer {
    void operator()(OGRCoordinateTransformation* way) const { OGRCoordinateTransformation::DestroyCT(way); }
};

using Transformation = std::unique_ptr<OGRCoordinateTransformation, Destroyer>;

/// The way from a layer's coordinates to longitude and latitude; none when they are that already or nothing is said.
Transformation WayToDegrees(const OGRLayer& layer)
{
    const OGRSpatialReference* from = const_cast<OGRLayer&>(layer).GetSpatialRef();
    if (!from) return nullptr;
    OGRSpatialReference degrees;
    degrees.SetWellKnownGeogCS("WGS84");
    degrees.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    OGRSpatialReference source = *from;
    source.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    Transformation way(OGRCreateCoordinateTransformation(&source, &degrees));
    if (!way)
        throw std::runtime_error(std::string("no way is known from the coordinates of its layer \"") +
                                 const_cast<OGRLayer&>(layer).GetName() + "\" to degrees");
    return way;
}

void CollectPaths(const OGRGeometry& geometry, std::vector<Path>& paths)
{
    switch (wkbFlatten(geometry.getGeometryType())) {
    case wkbLineString:
    case wkbLinearRing: {
        Path path;
        for (const OGRPoint& point : *geometry.toLineString()) path.push_back({point.getY(), -point.getX()});
        TakeShortWays(path);
        if (path.size() > 1) paths.push_back(std::move(path));
        return;
    }
    case wkbPolygon:
        for (const OGRLinearRing* ring : *geometry.toPolygon()) CollectPaths(*ring, paths);
        return;
    case wkbMultiLineString:
    case wkbMultiPolygon:
    case wkbGeometryCollection:
        for (const OGRGeometry* part : *geometry.toGeometryCollection()) CollectPaths(*part, paths);
        return;
    default:
        return;
    }
}

/// A name fit for the rest of a line in a map file.
std::string OneLine(std::string name)
{
    std::replace_if(
        name.begin(), name.end(), [](unsigned char c) { return c < ' '; }, ' ');
    return name.substr(0, 80);
}

/// A field's text. What an OpenStreetMap extract has no field of its own for stands among its other tags.
std::string FieldOf(const OGRFeature& feature, const std::string& name)
{
    const auto text = [&](const char* field) -> std::string {
        const int index = feature.GetFieldIndex(field);
        return index < 0 ? "" : const_cast<OGRFeature&>(feature).GetFieldAsString(index);
    };
    return feature.GetFieldIndex(name.c_str()) < 0 ? TagOf(text("other_tags"), name) : text(name.c_str());
}

/// Throws when a place can't be one of the globe.
void CheckPlaces(const OGRGeometry& geometry, const std::string& layer)
{
    constexpr double Slack = 1e-6;
    OGREnvelope bounds;
    geometry.getEnvelope(&bounds);
    if (bounds.MinX >= -540 && bounds.MaxX <= 540 && bounds.MinY >= -90 - Slack && bounds.MaxY <= 90 + Slack) return;
    throw std::runtime_error("the coordinates of its layer \"" + layer + "\" aren't degrees (" +
                             std::to_string(bounds.MinX) + ", " + std::to_string(bounds.MinY) +
                             "), and it doesn't say what they are; a shapefile says it in the .prj file beside it");
}

/// Adds a feature's lines. False: it has no place in degrees.
bool AddFeature(const OGRFeature& feature, const std::string& layer, OGRCoordinateTransformation* way,
                const Rules& rules, std::vector<DrawnLine>& lines)
{
    const auto fieldOf = [&](const std::string& name) { return FieldOf(feature, name); };
    const std::optional<Look> look = rules.LookOf(layer, fieldOf);
    if (!look || !feature.GetGeometryRef() || feature.GetGeometryRef()->IsEmpty()) return true;
    const std::unique_ptr<OGRGeometry> geometry(feature.GetGeometryRef()->getLinearGeometry());
    if (!geometry || (way && geometry->transform(way) != OGRERR_NONE)) return false;
    CheckPlaces(*geometry, layer);
    std::vector<Path> paths;
    CollectPaths(*geometry, paths);
    const std::string name = look->nameField.empty() ? "" : OneLine(fieldOf(look->nameField));
    for (Path& path : paths) lines.push_back({look->colour, name, std::move(path)});
    return true;
}

/// The next feature of any layer; none at the end. Throws when the file is damaged there.
std::unique_ptr<OGRFeature> NextFeature(GDALDataset& dataset, OGRLayer*& layer, double& done)
{
    CPLErrorReset();
    std::unique_ptr<OGRFeature> feature(dataset.GetNextFeature(&layer, &done, nullptr, nullptr));
    if (CPLGetLastErrorType() == CE_Failure)
        throw std::runtime_error(std::string("is damaged: ") + CPLGetLastErrorMsg());
    return feature;
}

std::vector<DrawnLine> ReadFeatures(GDALDataset& dataset, const std::filesystem::path& file, const Rules& rules)
{
    std::map<OGRLayer*, Transformation> ways;
    std::vector<DrawnLine> lines;
    Progress progress("Reading " + file.filename().string(), ProgressSteps);
    std::size_t shown = 0;
    std::size_t nowhere = 0;
    OGRLayer* layer = nullptr;
    double done = 0;
    while (const std::unique_ptr<OGRFeature> feature = NextFeature(dataset, layer, done)) {
        if (!ways.contains(layer)) ways[layer] = WayToDegrees(*layer);
        if (!AddFeature(*feature, layer->GetName(), ways[layer].get(), rules, lines)) ++nowhere;
        for (; static_cast<double>(shown) < done * ProgressSteps; ++shown) progress.Step();
    }
    if (nowhere > 0) std::printf("note: %zu features have no place in degrees and are left out\n", nowhere);
    return lines;
}

} // namespace

std::vector<DrawnLine> ReadVectorFile(const std::filesystem::path& file, const Rules& rules)
{
    GDALAllRegister();
    const std::unique_ptr<GDALDataset, Closer> dataset(
        GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY | GDAL_OF_VERBOSE_ERROR));
    if (!dataset)
        throw std::runtime_error(file.string() + ": GDAL can't read this as a vector file. " + CPLGetLastErrorMsg());
    try {
        return ReadFeatures(*dataset, file, rules);
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(file.string() + ": " + error.what());
    }
}

} // namespace halvern::mapmaker
