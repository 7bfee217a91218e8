// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <string_view>

namespace halvern {

/// What a window says of a control beside the control's own caption.
struct Words {
    QString label; ///< stands beside it, with its mnemonic; may be empty
    QString tip;   ///< shown under the pointer and told to screen readers
};

/// @param name  "Form.Control"; an element of an array is looked up without its index
Words WordsOf(std::string_view name);

} // namespace halvern
