// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <functional>
#include <vector>

#include "map/StationCard.h"

namespace halvern {

/// A card as rich text, its symbol's picture in front.
QString RichText(const StationCard& card);
/// The same in lines of plain text, as it is spoken.
QString SpokenText(const StationCard& card);

/// Stations whose symbols lie on each other, the uppermost first: its card, and whose symbols it covers.
QString RichText(const StationCard& uppermost, const std::vector<StationCard>& covered, std::size_t more);

/// A card in a window; nothing where there is none.
class CardView final : public QLabel {
public:
    /// Empty until it is shown a card.
    explicit CardView(QWidget* parent);
    /// Takes the place of the card before.
    void Show(const StationCard& card);
};

} // namespace halvern
