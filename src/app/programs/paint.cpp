// SPDX-License-Identifier: GPL-3.0-or-later
// halvern-paint: makes a picture of what a console without windows has drawn. Standard input is the drawing, standard
// output the bytes of a BMP file.
#include <QCoreApplication>

#include <iostream>
#include <iterator>

#include "platform/qt/screen/MapPainter.h"
#include "platform/simulated/KeptDrawing.h"

int main(int count, char** arguments)
{
    const QCoreApplication application(count, arguments); // finds what reads pictures
    const std::string drawing{std::istreambuf_iterator<char>(std::cin), {}};
    halvern::Controls all;
    halvern::Form form(all, "Paint", "Paint");
    halvern::Surface surface(form, "Surface");
    halvern::MapPainter painter(surface);
    halvern::DrawText(drawing, surface);
    std::cout << surface.Bitmap() << std::flush;
    return std::cout.good() ? 0 : 1;
}
