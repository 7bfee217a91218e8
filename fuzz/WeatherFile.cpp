// SPDX-License-Identifier: GPL-3.0-or-later
// The bytes of a weather program's file, whole and at any moment of its writing. What is taken for weather stood in it
// in one piece, but for the one mark that is put in; it is text, and fits a frame.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "protocol/WeatherFileText.h"

using namespace halvern;

namespace {

void Require(bool holds)
{
    if (!holds) std::abort();
}

void Check(std::string_view bytes)
{
    const auto read = ReadWeatherFile(bytes);
    Require((read.fault == WeatherFileFault::None) != read.weather.empty());
    if (read.weather.empty()) return;
    Require(read.weather.size() <= 229);
    const auto from = bytes.front() == '_' ? 10 : bytes.find(read.weather);
    Require(from != std::string_view::npos);
    int marks = 0;
    for (std::size_t i = 0; i < read.weather.size(); ++i) {
        if (read.weather[i] == bytes[from + i]) continue;
        Require(read.weather[i] == '/' && (bytes[from + i] == 's' || bytes[from + i] == 'S'));
        ++marks;
    }
    Require(marks == (bytes.front() == '_' ? 1 : 0));
    for (const char character : read.weather) Require(static_cast<unsigned char>(character) >= ' ');
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    for (std::size_t written = size > 64 ? size - 64 : 0; written <= size; ++written) Check(bytes.substr(0, written));
    return 0;
}
