// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/StatusLamps.h"

#include <QAccessible>
#include <QtWidgets>
#include <numeric>

#include "config/IniTable.h"
#include "forms/Bind.h"
#include "forms/DesktopNotice.h"
#include "forms/Glyphs.h"
#include "forms/Icons.h"
#include "forms/Tints.h"
#include "forms/Watching.h"

namespace halvern {
namespace {

enum class Shape { Ring, Disc, Cross };

struct LampLook {
    Shape shape;
    QColor colour; ///< none: the text's own, greyed
};

/// By `PortCondition`. The shape alone tells a port that works from one that does not.
LampLook LookOf(PortCondition condition)
{
    static const std::array<LampLook, 7> looks{{{Shape::Ring, {}},
                                                {Shape::Ring, MarkColour(Mark::Warning)},
                                                {Shape::Disc, MarkColour(Mark::Good)},
                                                {Shape::Disc, MarkColour(Mark::Busy)},
                                                {Shape::Disc, MarkColour(Mark::Warning)},
                                                {Shape::Disc, MarkColour(Mark::Warning)},
                                                {Shape::Cross, MarkColour(Mark::Bad)}}};
    return looks[static_cast<std::size_t>(condition)];
}

QIcon LampIcon(PortCondition condition, const QWidget* widget)
{
    constexpr int side = 12;
    const auto look = LookOf(condition);
    const auto colour =
        look.colour.isValid() ? look.colour : widget->palette().color(QPalette::Disabled, QPalette::WindowText);
    const auto ratio = widget->devicePixelRatioF();
    QPixmap pixmap(QSize(side, side) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, 1.8));
    if (look.shape == Shape::Disc) painter.setBrush(colour);
    const QRectF box(2, 2, side - 4, side - 4);
    if (look.shape == Shape::Cross)
        painter.drawLines({{box.topLeft(), box.bottomRight()}, {box.topRight(), box.bottomLeft()}});
    else
        painter.drawEllipse(box);
    return pixmap;
}

/// Conditions whose words stand beside the name; the others are told by the lamp and its tip.
bool IsWorthWords(PortCondition condition)
{
    return condition != PortCondition::Closed && condition != PortCondition::Open &&
           condition != PortCondition::Sending;
}

/// Whether a port that comes from one condition into another one is news: what goes on at an open port is none.
bool IsNews(PortCondition before, PortCondition now)
{
    const auto settled = [](PortCondition condition) {
        return condition == PortCondition::Sending || condition == PortCondition::Quiet ? PortCondition::Open
                                                                                        : condition;
    };
    return settled(before) != settled(now);
}

QToolButton* FlatButton(QWidget* parent)
{
    auto* button = new QToolButton(parent);
    button->setAutoRaise(true);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setIconSize({12, 12});
    button->setFocusPolicy(Qt::NoFocus); // all that they do is in the menus
    return button;
}

} // namespace

StatusLamps::StatusLamps(Halvern& halvern, const Looks& looks, QWidget* parent)
    : QWidget(parent), halvern(halvern), looks(looks), ports(halvern)
{
    setObjectName("StatusLamps");
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->setSpacing(0);
    const auto first = ports.Look();
    for (std::size_t i = 0; i < first.size(); ++i) row->addWidget(lamps[i] = MakeLamp(*first[i].item));
    row->addWidget(figures = new QLabel(this));
    figures->setContentsMargins(fontMetrics().height() / 2, 0, fontMetrics().height() / 2, 0);
    figures->setToolTip(tr("Packets that came in during the last minute, and stations in the list"));
    MakeMailMark(row);
    row->addWidget(unsaved = FlatButton(this));
    unsaved->setObjectName("StatusLamps.Unsaved");
    unsaved->setText(tr("Settings not saved"));
    unsaved->setToolTip(tr("What Setup says now is lost at the end of Halvern. A click leads to Save."));
    connect(unsaved, &QToolButton::clicked, this, &StatusLamps::SaveTabWanted);
    WatchPorts();
    WatchFor(this, halvern.TerminalFrm.RawPacketLst, [this](const Change& change) {
        if (change.what == Change::RowAdded) ++packets[second];
    });
    connect(&everySecond, &QTimer::timeout, this, [this] {
        second = (second + 1) % packets.size();
        Look();
        packets[(second + 1) % packets.size()] = 0;
    });
    everySecond.start(1000);
    Look();
}

/// A lamp opens a menu with its port's own item.
QToolButton* StatusLamps::MakeLamp(MenuItem& item)
{
    auto* lamp = FlatButton(this);
    lamp->setObjectName(QStringLiteral("StatusLamps.%1").arg(Shown(item.Name())));
    lamp->setPopupMode(QToolButton::InstantPopup);
    lamp->setStyleSheet("QToolButton::menu-indicator { image: none; }");
    auto* menu = new QMenu(lamp);
    auto* action = new QAction(menu);
    BindAction(action, item);
    menu->addAction(action);
    lamp->setMenu(menu);
    return lamp;
}

void StatusLamps::MakeMailMark(QHBoxLayout* row)
{
    auto* mark = FlatButton(this);
    mark->setObjectName("StatusLamps.Mail");
    mark->setIcon(LineIcon("Unread", palette()));
    mark->setToolTip(tr("Messages to this station that came since you looked. A click leads to them."));
    mark->hide();
    row->addWidget(mark);
    mail = new Mail(halvern, this);
    connect(mark, &QToolButton::clicked, this, &StatusLamps::MailWanted);
    connect(mail, &Mail::UnreadChanged, this, [this, mark](int messages) {
        const bool more = messages > mark->property("messages").toInt();
        mark->setProperty("messages", messages);
        mark->setText(messages == 1 ? tr("1 new message") : tr("%L1 new messages").arg(messages));
        mark->setAccessibleName(mark->text());
        mark->setVisible(messages > 0);
        if (more) TellOfMail();
    });
}

void StatusLamps::TellOfMail()
{
    QApplication::alert(window());
    const auto& messages = halvern.MessageFrm.MsgToYouLst;
    if (!looks.On(Look::DesktopNotices) || messages.Count() == 0) return;
    const auto row = Shown(messages.Row(messages.Count() - 1)); // "FROM>TO:number.text"
    NotifyDesktop(tr("Message from %1").arg(row.section('>', 0, 0).trimmed()), row.section(':', 1));
}

void StatusLamps::WatchPorts()
{
    auto& form = halvern.ConMdiFrm;
    auto* soon = new Pacer(this, [this] { Look(); });
    const auto ask = [soon](const Change&) { soon->Ask(); };
    for (Control* control :
         std::initializer_list<Control*>{&form.MSComm1, &form.WeatherCom, &form.GpsCom, &form.InternetSoc,
                                         &form.SoundSoc, &form.Psk63Soc, &halvern.SetUpfrm, &form.PortsMn})
        WatchFor(this, *control, ask);
}

void StatusLamps::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange) return;
    for (std::size_t i = 0; i < lamps.size(); ++i)
        if (lamps[i] != nullptr) lamps[i]->setIcon(LampIcon(conditions[i], this));
}

void StatusLamps::Look()
{
    const auto now = ports.Look();
    for (std::size_t i = 0; i < now.size(); ++i) ShowLamp(lamps[i], now[i], conditions[i]);
    ShowFigures();
    ShowSaved();
}

void StatusLamps::ShowLamp(QToolButton* button, const PortLamp& lamp, PortCondition& shown)
{
    const auto name = QString::fromUtf8(lamp.name);
    const auto words = Shown(lamp.words);
    const auto spoken = Spoken(Shown(lamp.item->Caption())) + ": " + words;
    if (button->icon().isNull() || shown != lamp.condition) button->setIcon(LampIcon(lamp.condition, this));
    const bool news = IsNews(shown, lamp.condition);
    shown = lamp.condition;
    const bool roomy = window()->width() > 160 * fontMetrics().averageCharWidth();
    const bool silent = lamp.condition == PortCondition::Closed && !roomy; // its tip names it
    button->setText(IsWorthWords(lamp.condition) ? name + ' ' + words : silent ? QString() : name);
    button->setToolButtonStyle(silent ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextBesideIcon);
    button->setEnabled(lamp.item->Enabled() && halvern.ConMdiFrm.PortsMn.Enabled());
    if (button->accessibleName() == spoken) return;
    button->setAccessibleName(spoken);
    button->setToolTip(lamp.reason.empty() ? spoken : spoken + "\n" + Shown(lamp.reason));
    if (!news) return;
    QAccessibleEvent alert(button, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void StatusLamps::ShowFigures()
{
    const int minute = std::accumulate(packets.begin(), packets.end(), 0);
    const int stations = halvern.PositionFrm.PosLst.Count();
    const auto text =
        tr("%L1/min  %L2 %3").arg(minute).arg(stations).arg(stations == 1 ? tr("station") : tr("stations"));
    if (figures->text() != text) figures->setText(text);
}

void StatusLamps::ShowSaved()
{
    const bool typed = halvern.ConMdiFrm.PortsMn.Enabled(); // there is something to lose
    unsaved->setVisible(typed && !halvern.SetUpfrm.Visible() && !SettingsSaved(halvern));
}

} // namespace halvern
