// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/Tints.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

#include "engine/ProcessPacket.h"
#include "platform/Text.h"

namespace halvern {
namespace {

constexpr float FaintText = 0.72F, FaintTint = 0.16F;

struct KindOfPacket {
    std::string_view types; ///< first characters of the information field
    float hue;              ///< 0 to 1, from red over green to blue
};
constexpr float Weather = 0.56F;
constexpr KindOfPacket Kinds[] = {{":", 0.12F}, {";)", 0.34F}, {"T", 0.78F}, {">", 0.47F}, {"_", Weather}};

/// Sets the colour anew whenever the desktop's palette, and with it the owner's, has changed.
class PlaceholderColour final : public QObject {
public:
    explicit PlaceholderColour(QWidget* owner) : QObject(owner)
    {
        owner->installEventFilter(this);
        Set();
    }
    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() == QEvent::PaletteChange) Set();
        return QObject::eventFilter(object, event);
    }

private:
    static void Set()
    {
        const auto wanted = QuietColour(QApplication::palette());
        if (QApplication::palette().color(QPalette::PlaceholderText) == wanted) return;
        QPalette one; // all else stays the desktop's
        one.setColor(QPalette::PlaceholderText, wanted);
        QApplication::setPalette(one);
    }
};

} // namespace

QColor QuietColour(const QPalette& palette)
{
    const auto text = palette.color(QPalette::Text), ground = palette.color(QPalette::Base);
    const auto mix = [](float one, float other) { return one * FaintText + other * (1 - FaintText); };
    return QColor::fromRgbF(mix(text.redF(), ground.redF()), mix(text.greenF(), ground.greenF()),
                            mix(text.blueF(), ground.blueF()));
}

void KeepPlaceholdersLegible(QWidget* owner)
{
    new PlaceholderColour(owner);
}

QColor TintOfPacket(std::string_view rawRow)
{
    const auto info = Columns(rawRow, PositionOf(rawRow, ':') + 1);
    if (info.empty() || info.size() == rawRow.size()) return {};
    const auto tint = [](float hue) { return QColor::fromHsvF(hue, 1, 1, FaintTint); };
    if (BearsArrival(info)) return tint(Weather);
    for (const auto& kind : Kinds)
        if (kind.types.find(info.front()) != std::string_view::npos) return tint(kind.hue);
    return {};
}

QColor MarkColour(Mark mark)
{
    static constexpr QRgb colours[] = {0xFF2A963E, 0xFF2F81F7, 0xFFB07800, 0xFFE5484D};
    return QColor::fromRgb(colours[static_cast<std::size_t>(mark)]);
}

} // namespace halvern
