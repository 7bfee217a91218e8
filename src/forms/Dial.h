// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include <QtWidgets>

namespace halvern {

/// What stands around a dial. Angles run clockwise from the top, in degrees.
struct DialScale {
    double first = 0, last = 1;     ///< values at both ends; the same place where the scale is a full circle
    double start = 0, sweep = 360;  ///< angle of the first value, and to the last one
    double step = 1, labelled = 10; ///< between two ticks, and between two that bear a label
    std::function<QString(double value)> label;
};

/// A round scale with a needle: a compass rose, a speedometer. Drawn in the desktop's colours; its value stands in
/// words under it, and a screen reader hears it.
class Dial final : public QWidget {
public:
    /// @param words  what the value is said by, "%1" for the number
    Dial(DialScale scale, QString words, QWidget* parent);
    void Point(double next);
    void SetScale(DialScale next);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    double AngleOf(double number) const;
    void DrawScale(QPainter& painter, double radius) const;
    void DrawNeedle(QPainter& painter, double radius) const;

    DialScale scale;
    const QString words;
    double value = 0;
};

} // namespace halvern
