// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/ComboAccess.h"

#include <QAccessibleWidget>
#include <QComboBox>

namespace halvern {
namespace {

/// Where the desktop has relations between labels and fields, Qt's own speaks the choice alone; a combo box on a
/// toolbar has no label that could be related.
class ComboAccess final : public QAccessibleWidget {
public:
    explicit ComboAccess(QComboBox* combo) : QAccessibleWidget(combo, QAccessible::ComboBox)
    {
        addControllingSignal(QStringLiteral("currentIndexChanged(int)"));
    }
    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Value) return Combo()->currentText();
        if (kind != QAccessible::Name || Combo()->accessibleName().isEmpty()) return QAccessibleWidget::text(kind);
        return Combo()->accessibleName() + ": " + Combo()->currentText();
    }
    QAccessible::State state() const override
    {
        auto state = QAccessibleWidget::state();
        state.expandable = true;
        state.hasPopup = true;
        return state;
    }
    QStringList actionNames() const override { return QAccessibleWidget::actionNames() << showMenuAction(); }
    void doAction(const QString& action) override
    {
        action == showMenuAction() ? Combo()->showPopup() : QAccessibleWidget::doAction(action);
    }

private:
    QComboBox* Combo() const { return static_cast<QComboBox*>(object()); }
};

QAccessibleInterface* MakeAccess(const QString&, QObject* object)
{
    auto* combo = qobject_cast<QComboBox*>(object);
    return combo != nullptr && !combo->isEditable() ? new ComboAccess(combo) : nullptr;
}

} // namespace

void LetCombosSayTheirName()
{
    static const bool installed = (QAccessible::installFactory(MakeAccess), true);
    Q_UNUSED(installed)
}

} // namespace halvern
