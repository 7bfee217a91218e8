// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/SetupRules.h"
#include "forms/DialogWindows.h"
#include "forms/Glyphs.h"
#include "forms/Watching.h"
#include "forms/Words.h"
#include "platform/Text.h"

namespace halvern {
namespace {

/// Two columns of groups on a page.
struct Page {
    explicit Page(QTabWidget* tabs) : widget(new QWidget(tabs)), columns(new QHBoxLayout(widget))
    {
        for (auto* column : {left = new QVBoxLayout, right = new QVBoxLayout}) columns->addLayout(column, 1);
    }
    QWidget* widget;
    QHBoxLayout* columns;
    QVBoxLayout *left, *right;
};

/// A group of lines under a title.
QFormLayout* Group(QVBoxLayout* column, const QString& title, QWidget* parent)
{
    auto* box = new QGroupBox(title, parent);
    column->addWidget(box);
    return new QFormLayout(box);
}

QLabel* Hint(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setWordWrap(true);
    return label;
}

/// A choice whose entries stand on one line.
QWidget* OnOneLine(Choice& choice, QWidget* parent)
{
    return BindChoice(choice, choice.Count(), parent);
}

class SetUpPages {
public:
    SetUpPages(Halvern& halvern, QTabWidget* tabs) : halvern(halvern), setUp(halvern.SetUpfrm), tabs(tabs) {}

    QWidget* Station()
    {
        Page page(tabs);
        Identity(page);
        Tnc(page);
        page.left->addStretch();
        page.right->addWidget(OnOneLine(setUp.DeadOnOpt, page.widget));
        Groups(page);
        return page.widget;
    }

    QWidget* Weather()
    {
        Page page(tabs);
        page.left->addWidget(BindChoice(setUp.WxSourceOpt, 1, page.widget));
        auto* port = BindFrame(setUp.ComWxFrame, page.widget);
        auto* portLines = new QFormLayout(port);
        for (List* list : {&setUp.WXPortCombo, &setUp.WXBaudCombo}) AddRow(portLines, *list);
        page.left->addWidget(port);
        page.left->addWidget(BindChoice(setUp.TimeOpt, 4, page.widget));
        page.left->addStretch();
        page.left->addWidget(BindButton(setUp.WxHelpCmd, page.widget), 0, Qt::AlignLeft);
        auto* file = BindFrame(setUp.SoftWxFrame, page.widget);
        auto* fileLines = new QFormLayout(file);
        for (List* list : {&setUp.WxSoftCombo, &setUp.Drive1}) AddRow(fileLines, *list);
        auto* folders = new RowsView(setUp.Dir1, {{}, false, false, true}, file);
        BindCommon(folders, setUp.Dir1);
        AddRow(fileLines, setUp.Dir1, folders, {});
        AddRow(fileLines, setUp.File1);
        page.right->addWidget(file);
        return page.widget;
    }

    QWidget* Internet()
    {
        Page page(tabs);
        auto* lines = Group(page.left, QObject::tr("APRS-IS server"), page.widget);
        AddRow(lines, setUp.IntDomainCombo, WideFor(28, BindCombo(setUp.IntDomainCombo, page.widget)), {});
        AddRow(lines, setUp.APRServePortTxt, FixedFor(7, BindField(setUp.APRServePortTxt, page.widget)), {});
        AddRow(lines, setUp.APRServePassTxt, FixedFor(7, BindField(setUp.APRServePassTxt, page.widget)), {});
        AddRow(lines, setUp.APRServeFilterTxt, WideFor(28, BindField(setUp.APRServeFilterTxt, page.widget)), {});
        lines->addRow(Hint(QObject::tr("A filter tells the server what to send: r/40.8/-73.1/200 is everything within "
                                       "200 km of a place, p/Q every call that begins with Q."),
                           page.widget));
        page.left->addStretch();
        page.right->addStretch();
        return page.widget;
    }

    QWidget* Save()
    {
        Page page(tabs);
        page.left->addWidget(Hint(QObject::tr("OK uses the settings until the program ends. Save keeps them for the "
                                              "next start, together with the places of the windows, their fonts and "
                                              "the view of the map."),
                                  page.widget));
        page.left->addWidget(BindButton(setUp.TabSaveCmd, page.widget), 0, Qt::AlignLeft);
        page.left->addStretch();
        page.right->addStretch();
        return page.widget;
    }

    QWidget* Modes()
    {
        Page page(tabs);
        auto* mode = OnOneLine(setUp.AprsMode, page.widget);
        auto* alternative = FixedFor(9, BindField(setUp.AltNetTxt, mode));
        auto* grid = static_cast<QGridLayout*>(mode->layout());
        grid->addWidget(LabelFor(alternative, setUp.AltNetTxt), 1, 0);
        grid->addWidget(alternative, 1, 1, 1, 3, Qt::AlignLeft);
        page.left->addWidget(mode);
        page.left->addWidget(Gps(page.widget));
        page.left->addWidget(OnOneLine(setUp.MyAliasOpt, page.widget));
        page.left->addStretch();
        auto* phg = Group(page.right, QObject::tr("Power and antenna"), page.widget);
        for (List* list : {&setUp.PhgPowerLst, &setUp.PhgHeightLst, &setUp.PhgGainLst, &setUp.PhgDirLst})
            AddRow(phg, *list);
        auto* psk = Group(page.right, QObject::tr("PSK63 engine"), page.widget);
        AddRow(psk, setUp.Psk63IpAddTxt, WideFor(15, BindField(setUp.Psk63IpAddTxt, page.widget)), {});
        AddRow(psk, setUp.Psk63PortTxt, FixedFor(7, BindField(setUp.Psk63PortTxt, page.widget)), {});
        page.right->addStretch();
        return page.widget;
    }

    QWidget* Igate()
    {
        Page page(tabs);
        page.left->addWidget(OnOneLine(setUp.IgateOpt, page.widget));
        page.left->addWidget(Framed(setUp.IgateBiDirFrame, {OnOneLine(setUp.IgateBIOpt, page.widget)}));
        page.left->addWidget(Framed(setUp.IgateHopFrame, {OnOneLine(setUp.IgateHopOpt, page.widget)}));
        auto* wait = BindNumber(setUp.IgateTimeLbl, page.widget);
        auto* seconds = BindLabel(setUp.IgateSecLbl, page.widget);
        page.left->addWidget(Framed(setUp.IgateTimeFrame, {LabelFor(wait, setUp.IgateTimeLbl), wait, seconds}));
        page.left->addStretch();
        page.right->addWidget(
            Callers(setUp.IgateBudsFrame, setUp.IgateBudsCombo, setUp.BudsAddCmd, setUp.BudsDelCmd, page.widget));
        page.right->addWidget(
            Callers(setUp.WxMessFram, setUp.WxMessCombo, setUp.WxAddCmd, setUp.WxDelCmd, page.widget));
        page.right->addStretch();
        page.right->addWidget(BindButton(setUp.IgateHelpCmd, page.widget), 0, Qt::AlignRight);
        return page.widget;
    }

private:
    void Identity(const Page& page)
    {
        auto* parent = page.widget;
        auto* lines = Group(page.left, QObject::tr("This station"), parent);
        lines->addRow(Hint(QObject::tr("Call sign, position, comment and status are needed; the rest can stay as it "
                                       "is. Nothing is sent before you open a port."),
                           parent));
        auto* call = FixedFor(8, BindField(setUp.CallSignTxt, parent));
        auto* ssid = BindNumber(setUp.SSIDLBL, parent);
        AddRow(lines, setUp.CallSignTxt, call, {LabelFor(ssid, setUp.SSIDLBL), ssid});
        AddAngle(lines, {setUp.LatDegtxt, setUp.LatMintxt, setUp.LatDectxt, setUp.LatSigntxt},
                 BindLabel(setUp.Latlbl, parent), parent);
        AddAngle(lines, {setUp.LonDegtxt, setUp.LonMintxt, setUp.LonDectxt, setUp.LonSigntxt},
                 BindLabel(setUp.Lonlbl, parent), parent);
        AddWarnings(lines, parent);
        auto* symbol = BindCombo(setUp.SymbolCombo, parent);
        ShowSymbols(symbol, halvern.ProgramFolder);
        AddRow(lines, setUp.SymbolCombo, symbol, {});
        AddRow(lines, setUp.CommentTXT, WideFor(36, BindField(setUp.CommentTXT, parent)), {});
        AddRow(lines, setUp.StatusTXT, WideFor(36, BindField(setUp.StatusTXT, parent)), {});
        auto* path = WideFor(14, BindCombo(setUp.UnPath, parent));
        AddRow(lines, setUp.UnPath, path, {BindButton(setUp.AddCom, parent), BindButton(setUp.DeleteCom, parent)});
        lines->addRow(WordsLabel("SetUpfrm.UtcTimeLbl"), BindLabel(setUp.UtcTimeLbl, parent));
        lines->addRow(Hint("If UTC is incorrect then set your systems date and time with the correct date and time and "
                           "UTC offset",
                           parent));
    }

    void AddWarnings(QFormLayout* lines, QWidget* parent)
    {
        auto& call = setUp.CallSignTxt;
        const auto nobody = [&call] { return UpperCase(call.Text()) == "N0CALL"; };
        lines->addRow(
            Warning(QObject::tr("N0CALL is nobody's call: enter your own before you send."), {&call}, nobody, parent));
        const auto parts = setUp.InOrder();
        const auto nowhere = [&setUp = setUp] {
            const auto texts = setUp.Texts();
            for (const std::size_t digits : {0, 1, 2, 4, 5, 6})
                if (texts[digits].empty() || texts[digits].find_first_not_of('0') != std::string::npos) return false;
            return true;
        };
        lines->addRow(Warning(QObject::tr("0 degrees north and east is in the sea off Africa."),
                              {parts.begin(), parts.end()}, nowhere, parent));
    }

    void Tnc(const Page& page)
    {
        auto* lines = Group(page.right, QObject::tr("TNC"), page.widget);
        for (List* list : {&setUp.PortLst, &setUp.PortSpeedLst, &setUp.TncTypeCombo}) AddRow(lines, *list);
    }

    void Groups(const Page& page)
    {
        auto* box = new QGroupBox(WordsOf(setUp.MsgGroupLst.Name()).label, page.widget);
        auto* row = new QHBoxLayout(box);
        auto* list = static_cast<RowsView*>(BindAny(setUp.MsgGroupLst, box));
        list->WantRows(5);
        list->setMinimumWidth(list->fontMetrics().horizontalAdvance('0') * 14);
        row->addWidget(list, 1);
        auto* buttons = new QVBoxLayout;
        for (Button* button : {&setUp.AddGrp, &setUp.ChangeGrp, &setUp.DeleteGrp})
            buttons->addWidget(BindButton(*button, box));
        buttons->addStretch();
        row->addLayout(buttons);
        page.right->addWidget(box, 1);
    }

    QWidget* Gps(QWidget* parent)
    {
        auto* box = BindChoice(setUp.GpsOpt, 2, parent);
        auto* lines = new QFormLayout;
        static_cast<QGridLayout*>(box->layout())->addLayout(lines, 1, 0, 1, 3);
        for (List* list : {&setUp.GpsPortLst, &setUp.GpsPortSpeedLst, &setUp.GpsSendTimeLst, &setUp.GpsSentanceLst}) {
            auto* combo = BindCombo(*list, box);
            AddRow(lines, *list, combo, {});
        }
        return box;
    }

    QWidget* Framed(Frame& frame, const QList<QWidget*>& widgets)
    {
        auto* box = BindFrame(frame, tabs);
        auto* row = new QHBoxLayout(box);
        row->addWidget(Beside(widgets, box));
        return box;
    }

    QWidget* Callers(Frame& frame, List& list, Button& add, Button& remove, QWidget* parent)
    {
        auto* box = BindFrame(frame, parent);
        auto* row = new QHBoxLayout(box);
        row->addWidget(WideFor(12, BindCombo(list, box)), 1);
        row->addWidget(BindButton(add, box));
        row->addWidget(BindButton(remove, box));
        return box;
    }

    static QLabel* WordsLabel(std::string_view name) { return new QLabel(WordsOf(name).label); }

    Halvern& halvern;
    SetUpForm& setUp;
    QTabWidget* tabs;
};

/// As long as no file has the settings, a line says how they are kept.
QLabel* FirstRunHint(Halvern& halvern, QWidget* parent)
{
    auto* hint =
        Hint(QObject::tr("OK uses these settings until Halvern ends. Save, here after OK, keeps them."), parent);
    const auto follow = [hint, &halvern](const Change&) { hint->setVisible(!halvern.Engine.ConfigLoaded); };
    WatchFor(hint, halvern.SetUpfrm, follow);
    follow({});
    return hint;
}

} // namespace

DialogWindow* MakeSetUpWindow(Halvern& halvern, QWidget* parent)
{
    auto& setUp = halvern.SetUpfrm;
    auto* window = new DialogWindow(setUp, parent);
    auto* tabs = new QTabWidget(window);
    SetUpPages pages(halvern, tabs);
    QWidget* const made[] = {pages.Station(), pages.Weather(), pages.Internet(),
                             pages.Save(),    pages.Modes(),   pages.Igate()};
    for (int i = 0; i < setUp.SSTab1.Count(); ++i) tabs->addTab(made[i], Shown(setUp.SSTab1.Entry(i)));
    BindTabs(tabs, setUp.SSTab1);
    auto* layout = new QVBoxLayout(window);
    layout->addWidget(tabs);
    layout->addWidget(FirstRunHint(halvern, window));
    layout->addWidget(ButtonRow(window, {&setUp.TabOkCmd, &setUp.TabCancelCmd, &setUp.HelpCmd}));
    for (const Button* button : {&setUp.TabOkCmd, &setUp.TabSaveCmd})
        FocusFault(window, *button, [&halvern] { return SetupFault(halvern).field; });
    return window;
}

} // namespace halvern
