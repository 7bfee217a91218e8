// SPDX-License-Identifier: GPL-3.0-or-later
#include "protocol/MyObject.h"

#include <algorithm>

#include "platform/Text.h"

namespace halvern {
namespace {

constexpr char PathMark = '|';
constexpr char SenderMark = '<';
constexpr std::size_t Slash = 41;                  ///< between course and speed
constexpr ColumnRange Course{38, 3}, Speed{42, 3}; //
constexpr ColumnRange AfterSpeed{45, ToTheEnd};    //
constexpr ColumnRange PositionColumns[] = {{19, 2}, {21, 2}, {24, 2}, {26, 1}, {28, 3}, {31, 2}, {34, 2}, {36, 1}};

/// What stands in front of a mark that counts only behind the fixed columns.
std::string_view Before(std::string_view row, char mark)
{
    const auto at = PositionOf(row, mark, myObjectRow::Tail);
    return at == 0 ? row : row.substr(0, at - 1);
}

ObjectPlace PlaceOf(std::string_view report, bool moves)
{
    ObjectPlace place;
    std::ranges::transform(PositionColumns, place.position.begin(),
                           [report](const ColumnRange& columns) { return std::string(columns(report)); });
    if (moves) {
        place.course = static_cast<int>(LeadingNumber(Course(report)));
        place.speed = static_cast<int>(LeadingNumber(Speed(report)));
    }
    place.comment = moves ? AfterSpeed(report) : Columns(report, myObjectRow::Tail);
    return place;
}

/// Three digits, a slash, three digits: nothing else is course and speed in a record of our own.
bool HasCourseAndSpeed(std::string_view report)
{
    const std::string digits = std::string(Course(report)) + std::string(Speed(report));
    return ColumnAt(report, Slash) == '/' && digits.size() == 6 && std::ranges::all_of(digits, IsDigit);
}

} // namespace

std::string MyObjectRecord(const MyObject& object, std::string_view stamp)
{
    const auto& [position, course, speed, comment] = object.place;
    const auto symbol = Padded(object.symbol, 2);
    auto record = ";" + CallField(object.name) + LiveObject + std::string(stamp) + "z" + position[0] + position[1] +
                  "." + position[2] + position[3] + symbol[0] + position[4] + position[5] + "." + position[6] +
                  position[7] + symbol[1];
    if (course != 0 || speed != 0) record += ZeroFilled(course, 3) + "/" + ZeroFilled(speed, 3);
    return record + comment.substr(0, comment.find(PathMark)) + PathMark + object.path;
}

std::string KilledRecord(std::string record)
{
    record.resize(std::max(record.size(), myObjectRow::Life), ' ');
    record[myObjectRow::Life - 1] = KilledObject;
    return record;
}

std::string_view MyObjectInformation(std::string_view record)
{
    return Before(record, PathMark);
}

MyObject ReadMyObject(std::string_view record)
{
    const auto report = MyObjectInformation(record);
    return {.name = std::string(myObjectRow::Name(report)),
            .symbol = std::string(Columns(report, myObjectRow::Table, 1)) +
                      std::string(Columns(report, myObjectRow::Code, 1)),
            .place = PlaceOf(report, HasCourseAndSpeed(report)),
            .path = std::string(Columns(record, report.size() + 2))};
}

ObjectPlace HeardObjectPlace(std::string_view row)
{
    const auto report = Before(row, SenderMark);
    return PlaceOf(report, ColumnAt(report, Slash) == '/');
}

} // namespace halvern
