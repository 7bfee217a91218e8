// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/DialogWindows.h"
#include "forms/Glyphs.h"
#include "forms/Icons.h"
#include "forms/Mail.h"
#include "forms/StoreWindows.h"
#include "forms/Watching.h"

namespace halvern {
namespace {

QWidget* ListPage(List& list, const char* column, QWidget* parent)
{
    auto* page = new QWidget(parent);
    auto* layout = new QVBoxLayout(page);
    layout->addWidget(MakeRows(list, {{{1, 0, column, ""}}, true, true}, page));
    return page;
}

/// What became of a message, as a sign before its row: heard, sent, or sent and acknowledged.
QIcon Sign(const Halvern& halvern, std::string_view row, const QPalette& palette)
{
    const bool own = row.starts_with(halvern.Engine.OwnCall + ">");
    const bool acknowledged = row.ends_with(" MESSAGE RECEIVED");
    return LineIcon(acknowledged ? "Acknowledged" : own ? "Sent" : "Received", palette);
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
    auto* rows = MakeRows(form.MsgToYouLst, {{{1, 0, "From > to : number . text", ""}}, true, true}, page);
    rows->Rows().ShowPictures([&halvern, rows](std::string_view row) { return Sign(halvern, row, rows->palette()); });
    layout->addWidget(rows, 1);
    auto* grid = new QGridLayout;
    layout->addLayout(grid);
    auto* to = WideFor(10, BindField(form.SendCallTxt, page));
    auto* caption = BindLabel(form.Label1, page);
    caption->setBuddy(to);
    auto* path = WideFor(12, BindCombo(form.MailUnPath, page));
    auto* text = BindField(form.MsgTxt, page);
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
    QWidget* const pages[] = {ListPage(form.TrafficLst, "From > to : text", tabs), SendPage(halvern, tabs),
                              ListPage(form.BullLst, "From > bulletin : text", tabs)};
    for (int i = 0; i < form.SSTab2.Count(); ++i) tabs->addTab(pages[i], Shown(form.SSTab2.Entry(i)));
    BindTabs(tabs, form.SSTab2);
    ShowNews(tabs, *new Mail(halvern, tabs));
    return tabs;
}

} // namespace halvern
