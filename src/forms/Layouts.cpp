// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/Layouts.h"

#include "forms/Glyphs.h"
#include "forms/Watching.h"
#include "platform/Files.h"
#include "platform/Text.h"
#include "state/Rows.h"
#include "view/SymbolFile.h"

namespace halvern {
namespace {

/// A symbol's picture; its name is table and code.
QIcon SymbolIcon(const std::string& programFolder, std::string_view name)
{
    if (name.size() < 2) return {};
    const auto table = static_cast<unsigned char>(name.front());
    const auto code = static_cast<unsigned char>(name.back());
    auto file = SymbolFileName(programFolder, table, code);
    if (file == "NG") file = SymbolFileName(programFolder, 'A', code); // a symbol that always bears an overlay
    if (file.empty() || file == "NG") return {};
    const DiskFiles files;
    const QFileInfo info(Shown(files.Resolved(file)));
    QIcon icon(info.filePath());
    QPixmap twice(Shown(files.Resolved(Typed(info.path() + "@2x/" + info.completeBaseName() + ".PNG"))));
    twice.setDevicePixelRatio(2);
    if (!twice.isNull()) icon.addPixmap(twice);
    return icon;
}

StoreModel::Picture SymbolPicture(const std::string& programFolder)
{
    return [programFolder](std::string_view name) { return SymbolIcon(programFolder, name); };
}

/// A symbol list's row ends with table and code.
std::string SymbolOfRow(std::string_view row)
{
    return std::string(row.substr(row.size() - std::min<std::size_t>(row.size(), 2)));
}

std::string SymbolOfStation(std::string_view row)
{
    return {ColumnAt(row, positionRow::Table), ColumnAt(row, positionRow::Code)};
}

/// Buttons that leave everything as it is.
bool OnlyCloses(const Button& button)
{
    const auto& name = button.Name();
    return name.find("Cancel") != std::string::npos || name.find("Clos") != std::string::npos;
}

} // namespace

QWidget* AddRow(QFormLayout* form, Control& control)
{
    auto* widget = BindAny(control, form->parentWidget());
    AddRow(form, control, widget, {});
    return widget;
}

void AddRow(QFormLayout* form, Control& control, QWidget* widget, const QList<QWidget*>& behind)
{
    auto* line = behind.isEmpty() ? widget : Beside(QList<QWidget*>{widget} + behind, form->parentWidget());
    auto* label = LabelFor(widget, control);
    if (label->text().isEmpty()) {
        delete label;
        form->addRow(line);
    } else {
        form->addRow(label, line);
    }
}

QWidget* Beside(const QList<QWidget*>& widgets, QWidget* parent)
{
    auto* line = new QWidget(parent);
    auto* row = new QHBoxLayout(line);
    row->setContentsMargins({});
    for (auto* widget : widgets) row->addWidget(widget);
    row->addStretch();
    return line;
}

QWidget* FixedFor(int characters, QWidget* widget)
{
    widget->setFixedWidth(WideFor(characters, widget)->minimumWidth());
    return widget;
}

void AddAngle(QFormLayout* form, const AngleFields& fields, QWidget* behind, QWidget* parent)
{
    const auto field = [parent](TextField& control, int characters, const QString& pattern) {
        auto* line = BindField(control, parent);
        line->setPlaceholderText(pattern);
        return FixedFor(characters, line);
    };
    auto* degrees = field(fields.degrees, 3, QString(static_cast<qsizetype>(fields.degrees.longest), 'D'));
    QList<QWidget*> line{new QLabel(QStringLiteral("\u00b0"), parent),
                         field(fields.minutes, 2, "MM"),
                         new QLabel(".", parent),
                         field(fields.hundredths, 2, "hh"),
                         new QLabel("'", parent),
                         field(fields.sign, 2, fields.degrees.longest > 2 ? "W" : "N")};
    if (behind != nullptr) line += behind;
    AddRow(form, fields.degrees, degrees, line);
}

QWidget* ButtonRow(DialogWindow* window, const QList<Button*>& buttons)
{
    auto* line = new QWidget(window);
    auto* row = new QHBoxLayout(line);
    row->setContentsMargins({});
    row->addStretch();
    bool first = true;
    for (auto* button : buttons) {
        auto* widget = BindButton(*button, line);
        widget->setAutoDefault(false);
        widget->setDefault(std::exchange(first, false));
        row->addWidget(widget);
        if (OnlyCloses(*button)) window->SetEscape(*button);
    }
    return line;
}

void FocusFault(const DialogWindow* window, const Button& button, const std::function<const Control*()>& fault)
{
    auto* widget = window->findChild<QPushButton*>(Shown(button.Name()));
    QObject::connect(widget, &QPushButton::clicked, window, [window, fault] {
        const auto* control = window->isVisible() ? fault() : nullptr;
        auto* field = control == nullptr ? nullptr : window->findChild<QWidget*>(Shown(control->Name()));
        if (field == nullptr) return;
        for (auto* tabs : window->findChildren<QTabWidget*>())
            for (int tab = 0; tab < tabs->count(); ++tab)
                if (tabs->widget(tab)->isAncestorOf(field)) tabs->setCurrentIndex(tab);
        field->setFocus();
        if (auto* line = qobject_cast<QLineEdit*>(field)) line->selectAll();
    });
}

QLabel* Warning(const QString& text, const QList<TextField*>& fields, const std::function<bool()>& holds,
                QWidget* parent)
{
    auto* label = new QLabel(QStringLiteral("\u26a0 ") + text, parent);
    label->setWordWrap(true);
    const auto follow = [label, holds](const Change&) { label->setVisible(holds()); };
    for (auto* field : fields) WatchFor(label, *field, follow);
    follow({});
    return label;
}

void ShowSymbols(QComboBox* combo, const std::string& programFolder)
{
    static_cast<StoreModel*>(combo->model())->ShowPictures(SymbolOfRow, SymbolPicture(programFolder));
    combo->setIconSize({20, 20});
    combo->setMaxVisibleItems(20);
    // As wide as its rows it would ask for the picture of each: some 200 files before the first window is seen.
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(24);
}

void ShowSymbols(RowsView* view, const std::string& programFolder)
{
    view->ShowPictures(SymbolOfRow, SymbolPicture(programFolder));
}

QWidget* Scrolled(QWidget* form)
{
    auto* area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(form);
    return area;
}

void ShowStationSymbols(RowsView* view, const std::string& programFolder)
{
    view->ShowPictures(SymbolOfStation, SymbolPicture(programFolder));
}

} // namespace halvern
