// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/DialogWindows.h"
#include "forms/FilterLine.h"
#include "forms/Glyphs.h"
#include "forms/Icons.h"
#include "forms/Mail.h"
#include "forms/MessageStates.h"
#include "forms/StationMenu.h"
#include "forms/StoreWindows.h"
#include "forms/Watching.h"
#include "platform/Text.h"

namespace halvern {
namespace {

/// Whom an answer to a row goes to: who sent it, or to whom this station sent it.
CallOfRow OtherEnd(const Halvern& halvern)
{
    return [&halvern](std::string_view row) {
        const auto source = SourceOf(row);
        if (source != halvern.Engine.OwnCall) return source;
        const auto to = Columns(row, source.size() + 2);
        return std::string(to.substr(0, std::min(to.find(':'), to.size())));
    };
}

/// A row is answered, and its station's rows can be shown alone.
void ServeMail(RowsView* rows, Halvern& halvern)
{
    ServeStations(rows, halvern, OtherEnd(halvern), WriteTo);
    rows->Offers = [rows, offers = rows->Offers, callOf = OtherEnd(halvern)](QMenu& menu, const std::string& row) {
        offers(menu, row);
        const auto call = Shown(callOf(row));
        menu.addAction(QObject::tr("&Only %1").arg(call), rows, [rows, call] { rows->ShowFilter()->setText(call); });
    };
}

QWidget* ListPage(Halvern& halvern, List& list, const char* column, QWidget* parent)
{
    auto* page = new QWidget(parent);
    auto* layout = new QVBoxLayout(page);
    auto* rows = MakeRows(list, {{{1, 0, column, ""}}, true, true}, page);
    ServeMail(rows, halvern);
    layout->addWidget(rows);
    return page;
}

/// The sign of what became of a message: heard, sent, or sent and acknowledged.
std::string SignOf(const Halvern& halvern, std::string_view row)
{
    const bool own = row.starts_with(halvern.Engine.OwnCall + ">");
    return row.ends_with(" MESSAGE RECEIVED") ? "Acknowledged" : own ? "Sent" : "Received";
}

RowsView* MakeMail(Halvern& halvern, QWidget* parent)
{
    constexpr int second = 1000;
    auto* states = new MessageStates(halvern, parent);
    RowsLook look;
    look.columns = {
        {1, 5, "UTC", "When it came or was sent", [states](auto row) { return states->TimeOf(row); }, {}, true},
        {1, 18, "State", "What became of a message of this station",
         [states](auto row) { return states->StateOf(row); }},
        {1, 0, "From > to : number . text", "", {}, {}}};
    look.markNews = look.followEnd = true;
    auto* rows = MakeRows(halvern.MessageFrm.MsgToYouLst, look, parent);
    rows->ShowPictures([&halvern](std::string_view row) { return SignOf(halvern, row); },
                       [rows](std::string_view name) { return LineIcon(Shown(name), rows->palette()); });
    rows->RefreshEvery(second);
    ServeMail(rows, halvern);
    return rows;
}

/// How much of a field is used: "12 of 67".
QLabel* Counter(TextField& field, QWidget* parent)
{
    auto* label = new QLabel(parent);
    const auto show = [label, &field] {
        label->setText(QObject::tr("%1 of %2").arg(field.Text().size()).arg(field.longest));
    };
    show();
    label->setAccessibleName(QObject::tr("Characters used"));
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance("00 of 00"));
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    WatchFor(label, field, [show](const Change&) { show(); });
    return label;
}

QWidget* SendPage(Halvern& halvern, QWidget* parent)
{
    auto& form = halvern.MessageFrm;
    auto* page = new QWidget(parent);
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(MakeMail(halvern, page), 1);
    auto* grid = new QGridLayout;
    layout->addLayout(grid);
    auto* to = WideFor(10, BindField(form.SendCallTxt, page));
    auto* caption = BindLabel(form.Label1, page);
    caption->setBuddy(to);
    auto* path = WideFor(12, BindCombo(form.MailUnPath, page));
    auto* text = BindField(form.MsgTxt, page);
    text->setPlaceholderText(QObject::tr("Enter sends"));
    page->setFocusProxy(to);
    text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    grid->addWidget(caption, 0, 0);
    grid->addWidget(Beside({to, LabelFor(path, form.MailUnPath), path}, page), 0, 1);
    grid->addWidget(LabelFor(text, form.MsgTxt), 1, 0);
    grid->addWidget(text, 1, 1);
    grid->addWidget(Beside({BindButton(form.QueryCmd, page), BindButton(form.PSk63HelpCmd, page)}, page), 2, 1);
    grid->addWidget(Counter(form.MsgTxt, page), 2, 1, Qt::AlignRight);
    grid->setColumnStretch(1, 1);
    return page;
}

/// A dot on every tab that has something unread.
void ShowNews(QTabWidget* tabs, const Mail& mail)
{
    const auto show = [tabs](int tab, int rows) {
        auto palette = tabs->palette();
        palette.setColor(QPalette::Active, QPalette::ButtonText, palette.color(QPalette::Highlight));
        tabs->setTabIcon(tab, rows > 0 ? LineIcon("Unread", palette) : QIcon());
        tabs->setTabToolTip(tab, rows > 0 ? QObject::tr("%1 unread").arg(rows) : QString());
        const auto name = tabs->tabText(tab);
        tabs->tabBar()->setAccessibleTabName(tab, rows > 0 ? QObject::tr("%1, %2 unread").arg(name).arg(rows) : name);
    };
    QObject::connect(&mail, &Mail::NewsChanged, tabs, show);
}

} // namespace

QWidget* MakeMessageWindow(Halvern& halvern)
{
    auto& form = halvern.MessageFrm;
    auto* tabs = new QTabWidget;
    tabs->setDocumentMode(true);
    QWidget* const pages[] = {ListPage(halvern, form.TrafficLst, "From > to : text", tabs), SendPage(halvern, tabs),
                              ListPage(halvern, form.BullLst, "From > bulletin : text", tabs)};
    for (int i = 0; i < form.SSTab2.Count(); ++i) tabs->addTab(pages[i], Shown(form.SSTab2.Entry(i)));
    BindTabs(tabs, form.SSTab2);
    ShowNews(tabs, *new Mail(halvern, tabs));
    QObject::connect(tabs, &QTabWidget::currentChanged, tabs, [tabs](int tab) {
        if (tab == SendTab && !tabs->tabBar()->hasFocus())
            tabs->currentWidget()->setFocus(); // what is typed is the call
    });
    return tabs;
}

} // namespace halvern
