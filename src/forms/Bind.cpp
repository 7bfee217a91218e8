// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/Bind.h"

#include "forms/ComboAccess.h"
#include "forms/Glyphs.h"
#include "forms/Watching.h"
#include "forms/Words.h"
#include "platform/Text.h"

namespace halvern {
namespace {

using Flag = std::shared_ptr<bool>;

void ShowEnabledAndVisible(QWidget* widget, const Control& control)
{
    widget->setEnabled(control.Enabled());
    if (widget->isVisibleTo(widget->parentWidget()) != control.Visible() &&
        (widget->parentWidget() || !control.Visible()))
        widget->setVisible(control.Visible());
}

void UseFont(QWidget* widget, const Font& font)
{
    if (font == Font{}) return;
    QFont next = widget->font();
    if (!font.face.empty()) next.setFamily(Shown(font.face));
    if (font.size > 0) next.setPointSizeF(font.size);
    widget->setFont(next);
}

/// The keys of a line that is typed in: a rule may change a character or swallow it. Entering and leaving are events.
class TypingRules final : public QObject {
public:
    struct Events {
        std::function<void(int& key)>* onKey;
        Event *onEnter, *onLeave;
        std::function<void()> settle;
    };
    TypingRules(QLineEdit* line, Control& control, Events events)
        : QObject(line), line(line), control(control), events(std::move(events))
    {
        line->installEventFilter(this);
    }
    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() == QEvent::FocusIn && events.onEnter) FromScreen(control, [&] { Fire(*events.onEnter); });
        if (event->type() == QEvent::FocusOut && events.onLeave) FromScreen(control, [&] { Fire(*events.onLeave); });
        if (event->type() == QEvent::KeyPress && *events.onKey) return Key(static_cast<QKeyEvent*>(event));
        return QObject::eventFilter(object, event);
    }

private:
    bool Key(const QKeyEvent* event)
    {
        const auto text = event->text();
        if (text.size() != 1 || (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0) return false;
        const int typed = text[0].unicode();
        int key = typed;
        FromScreen(control, [&] { Fire(*events.onKey, key); });
        events.settle();
        if (key == typed) return false;
        if (key >= 32) line->insert(QString(QChar(static_cast<char16_t>(key))));
        return true;
    }
    QLineEdit* line;
    Control& control;
    Events events;
};

void PutText(QLineEdit* line, const std::string& text)
{
    const auto shown = Shown(text);
    if (line->text() == shown) return;
    const int cursor = line->cursorPosition();
    line->setText(shown);
    line->setCursorPosition(cursor);
}

/// A spin box that keeps the zeros at the front where the caption has them.
class ZeroFilledSpin final : public QSpinBox {
public:
    ZeroFilledSpin(int width, QWidget* parent) : QSpinBox(parent), width(width) {}
    QString textFromValue(int value) const override { return Shown(ZeroFilled(value, width)); }

private:
    const int width;
};

} // namespace

void BindCommon(QWidget* widget, Control& control, const QString& spoken)
{
    const auto words = WordsOf(control.Name());
    widget->setObjectName(Shown(control.Name()));
    const auto label = words.label.isEmpty() ? spoken : words.label;
    widget->setAccessibleName(Spoken(label.isEmpty() ? words.tip : label));
    widget->setAccessibleDescription(words.tip);
    widget->setToolTip(words.tip.isEmpty() ? Spoken(label) : words.tip);
    ShowEnabledAndVisible(widget, control);
    WatchFor(widget, control, [widget, &control](const Change&) { ShowEnabledAndVisible(widget, control); });
}

QLabel* BindLabel(Label& label, QWidget* parent)
{
    auto* widget = new QLabel(parent);
    widget->setTextFormat(Qt::PlainText);
    const auto show = [widget, &label] { widget->setText(Shown(label.Caption())); };
    show();
    auto* pacer = new Pacer(widget, show);
    BindCommon(widget, label, Shown(label.Caption()));
    const auto role = widget->accessibleName();
    widget->setAccessibleName({}); // what is spoken is the text itself, each time that it changes
    if (widget->accessibleDescription().isEmpty()) widget->setAccessibleDescription(role);
    WatchFor(widget, label, [pacer](const Change&) { pacer->Ask(); });
    return widget;
}

QGroupBox* BindFrame(Frame& frame, QWidget* parent)
{
    auto* widget = new QGroupBox(parent);
    const auto show = [widget, &frame] { widget->setTitle(Shown(frame.Caption())); };
    show();
    BindCommon(widget, frame, Shown(frame.Caption()));
    WatchFor(widget, frame, [show](const Change&) { show(); });
    return widget;
}

QPushButton* BindButton(Button& button, QWidget* parent)
{
    auto* widget = new QPushButton(parent);
    const auto show = [widget, &button] { widget->setText(Shown(button.Caption())); };
    show();
    BindCommon(widget, button, Shown(button.Caption()));
    WatchFor(widget, button, [show](const Change&) { show(); });
    QObject::connect(widget, &QPushButton::clicked, widget, [&button] { FromScreen(button, [&] { button.Click(); }); });
    return widget;
}

QLineEdit* BindField(TextField& field, QWidget* parent)
{
    auto* line = new QLineEdit(parent);
    auto writing = std::make_shared<bool>(false);
    if (field.longest != 0) line->setMaxLength(static_cast<int>(field.longest));
    const auto show = [line, &field, writing] {
        if (!*writing) PutText(line, field.Text());
    };
    line->setText(Shown(field.Text()));
    UseFont(line, field.Font());
    BindCommon(line, field);
    WatchFor(line, field, [line, &field, show](const Change&) {
        UseFont(line, field.Font());
        show();
    });
    QObject::connect(line, &QLineEdit::textEdited, line, [&field, writing, show](const QString& text) {
        FromScreen(
            field, *writing, [&] { field.SetText(Typed(text, field.longest)); }, show);
    });
    new TypingRules(line, field, {&field.OnKey, &field.OnEnter, &field.OnLeave, show});
    return line;
}

QPlainTextEdit* BindText(TextField& field, QWidget* parent)
{
    auto* widget = new QPlainTextEdit(parent);
    widget->setReadOnly(true);
    widget->setTabChangesFocus(true);
    const auto show = [widget, &field] {
        const auto text = Shown(field.Text());
        if (widget->toPlainText() != text) widget->setPlainText(text);
        UseFont(widget, field.Font());
    };
    show();
    BindCommon(widget, field);
    WatchFor(widget, field, [show](const Change&) { show(); });
    return widget;
}

QComboBox* BindCombo(List& list, QWidget* parent)
{
    LetCombosSayTheirName();
    auto* combo = new QComboBox(parent);
    auto writing = std::make_shared<bool>(false);
    combo->setModel(new StoreModel(list, {}, StoreModel::Pace::AtOnce, false, combo));
    combo->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    const bool typed = list.style == ListStyle::TypedCombo;
    combo->setEditable(typed);
    combo->setInsertPolicy(QComboBox::NoInsert);
    const auto show = [combo, &list, writing, typed] {
        if (*writing) return;
        const QSignalBlocker quiet(combo);
        const int cursor = typed ? combo->lineEdit()->cursorPosition() : 0;
        if (combo->currentIndex() != list.Selected()) combo->setCurrentIndex(list.Selected());
        if (!typed) return;
        PutText(combo->lineEdit(), list.Text());
        combo->lineEdit()->setCursorPosition(cursor); // a new index has emptied the line on the way
    };
    show();
    UseFont(combo, list.Font());
    BindCommon(combo, list);
    combo->view()->setAccessibleName(combo->accessibleName());
    WatchFor(combo, list, [combo, &list, show](const Change&) {
        UseFont(combo, list.Font());
        show();
    });
    QObject::connect(combo, &QComboBox::activated, combo, [&list, writing, show](int row) {
        FromScreen(
            list, *writing, [&] { list.Click(row); }, show);
    });
    if (typed) {
        combo->lineEdit()->setAccessibleName(combo->accessibleName());
        combo->setCompleter(nullptr); // a half-typed word is the operator's own
        QObject::connect(combo->lineEdit(), &QLineEdit::textEdited, combo, [&list, writing, show](const QString& text) {
            FromScreen(
                list, *writing, [&] { list.SetText(Typed(text)); }, show);
        });
        new TypingRules(combo->lineEdit(), list, {&list.OnKey, nullptr, &list.OnLeave, show});
    }
    return combo;
}

QSpinBox* BindNumber(NumberLabel& number, QWidget* parent)
{
    const int width = static_cast<int>(number.Caption().size());
    auto* spin = new ZeroFilledSpin(width, parent);
    spin->setRange(number.least, number.most);
    const auto show = [spin, &number] {
        const QSignalBlocker quiet(spin);
        spin->setValue(number.Number());
    };
    show();
    BindCommon(spin, number);
    WatchFor(spin, number, [show](const Change&) { show(); });
    QObject::connect(spin, &QSpinBox::valueChanged, spin,
                     [&number](int value) { FromScreen(number, [&] { number.SetNumber(value); }); });
    return spin;
}

QSlider* BindGauge(Gauge& gauge, int least, int most, QWidget* parent)
{
    auto* slider = new QSlider(Qt::Horizontal, parent);
    slider->setRange(least, most);
    const auto show = [slider, &gauge] {
        const QSignalBlocker quiet(slider);
        slider->setValue(qRound(gauge.Value()));
    };
    show();
    BindCommon(slider, gauge);
    WatchFor(slider, gauge, [show](const Change&) { show(); });
    QObject::connect(slider, &QSlider::valueChanged, slider,
                     [&gauge](int value) { FromScreen(gauge, [&] { gauge.SetValue(value); }); });
    return slider;
}

QWidget* BindChoice(Choice& choice, int columns, QWidget* parent)
{
    const auto words = WordsOf(choice.Name());
    auto* box = words.label.isEmpty() ? new QWidget(parent) : new QGroupBox(words.label, parent);
    auto* grid = new QGridLayout(box);
    if (words.label.isEmpty()) grid->setContentsMargins({});
    grid->setColumnStretch(columns, 1);
    auto* group = new QButtonGroup(box);
    for (int i = 0; i < choice.Count(); ++i) {
        auto* radio = new QRadioButton(Shown(choice.Entry(i)), box);
        radio->setObjectName(Shown(choice.Name() + "(" + std::to_string(i) + ")"));
        radio->setAccessibleName(Shown(choice.Entry(i)));
        radio->setAccessibleDescription(words.tip);
        radio->setToolTip(words.tip);
        group->addButton(radio, i);
        grid->addWidget(radio, i / columns, i % columns);
    }
    auto writing = std::make_shared<bool>(false);
    const auto show = [group, &choice, writing] {
        if (*writing) return;
        const QSignalBlocker quiet(group);
        group->setExclusive(false);
        for (int i = 0; i < choice.Count(); ++i) {
            group->button(i)->setEnabled(choice.EntryEnabled(i));
            group->button(i)->setChecked(choice.On(i));
        }
        group->setExclusive(true);
    };
    show();
    BindCommon(box, choice);
    WatchFor(box, choice, [show](const Change&) { show(); });
    QObject::connect(group, &QButtonGroup::idToggled, box, [&choice, writing, show](int id, bool on) {
        if (on)
            FromScreen(
                choice, *writing, [&] { choice.Select(id); }, show);
    });
    return box;
}

void BindTabs(QTabWidget* tabs, Choice& choice)
{
    const auto show = [tabs, &choice] {
        const QSignalBlocker quiet(tabs);
        tabs->setCurrentIndex(choice.Selected());
    };
    show();
    BindCommon(tabs, choice);
    tabs->setToolTip({});
    WatchFor(tabs, choice, [show](const Change&) { show(); });
    QObject::connect(tabs, &QTabWidget::currentChanged, tabs,
                     [&choice](int index) { FromScreen(choice, [&] { choice.Select(index); }); });
}

void BindAction(QAction* action, MenuItem& item, const std::function<bool()>& ask)
{
    const auto show = [action, &item] {
        action->setText(Shown(item.Caption()));
        action->setEnabled(item.Enabled());
        action->setVisible(item.Visible());
        if (item.Checked()) action->setCheckable(true);
        action->setChecked(item.Checked());
    };
    action->setObjectName(Shown(item.Name()));
    const auto tip = WordsOf(item.Name()).tip;
    action->setToolTip(tip.isEmpty() ? Spoken(Shown(item.Caption())) : tip);
    action->setStatusTip({});
    show();
    WatchFor(action, item, [show](const Change&) { show(); });
    QObject::connect(action, &QAction::triggered, action, [action, &item, ask] {
        if (!ask || ask()) FromScreen(item, [&] { item.Click(); });
        action->setChecked(item.Checked()); // the click alone decides nothing
    });
}

QWidget* BindAny(Control& control, QWidget* parent)
{
    if (auto* number = dynamic_cast<NumberLabel*>(&control)) return BindNumber(*number, parent);
    if (auto* button = dynamic_cast<Button*>(&control)) return BindButton(*button, parent);
    if (auto* label = dynamic_cast<Label*>(&control)) return BindLabel(*label, parent);
    if (auto* field = dynamic_cast<TextField*>(&control)) return BindField(*field, parent);
    if (auto* choice = dynamic_cast<Choice*>(&control)) return BindChoice(*choice, 1, parent);
    if (auto* gauge = dynamic_cast<Gauge*>(&control)) return BindGauge(*gauge, 0, 100, parent);
    if (auto* grid = dynamic_cast<Grid*>(&control)) {
        auto* view = new GridView(*grid, parent);
        BindCommon(view, control);
        return view;
    }
    if (auto* list = dynamic_cast<List*>(&control)) {
        if (list->style == ListStyle::Combo || list->style == ListStyle::TypedCombo) return BindCombo(*list, parent);
        auto* view = new RowsView(*list, {}, parent);
        BindCommon(view, control);
        return view;
    }
    return nullptr; // timers and ports have nothing to show
}

QLabel* LabelFor(QWidget* widget, Control& control)
{
    auto* label = new QLabel(WordsOf(control.Name()).label, widget->parentWidget());
    label->setBuddy(widget);
    ShowEnabledAndVisible(label, control);
    WatchFor(label, control, [label, &control](const Change&) { ShowEnabledAndVisible(label, control); });
    return label;
}

} // namespace halvern
