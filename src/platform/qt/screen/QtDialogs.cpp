// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/screen/QtDialogs.h"

#include <algorithm>

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QEventLoop>
#include <QFileDialog>
#include <QFontDialog>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QScreen>
#include <QTemporaryFile>
#include <QTimer>
#include <QUrl>

#include "platform/Files.h"
#include "platform/qt/Glyphs.h"
#include "platform/qt/screen/QtProgress.h"

namespace halvern {
namespace {

constexpr const char* PdfPrinter = "PDF File";
/// Until then a box that was closed has left the screen.
constexpr int BoxGoneMs = 300;

/// Above what a dialog stands: the window that the operator is looking at.
QWidget* Above()
{
    return QApplication::activeModalWidget() != nullptr ? QApplication::activeModalWidget()
                                                        : QApplication::activeWindow();
}

QMessageBox::Icon IconOf(Icon icon)
{
    switch (icon) {
    case Icon::Critical:
    case Icon::Stop:
        return QMessageBox::Critical;
    case Icon::Question:
        return QMessageBox::Question;
    case Icon::Information:
        return QMessageBox::Information;
    case Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

/// "Log Files | *.log" as the toolkit wants it: "Log Files (*.log)"; several pairs stand one behind the other.
QString FilterOf(const std::string& filter)
{
    const auto parts = Shown(filter).split('|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2)
        filters += parts[i].trimmed() + " (" + parts[i + 1].trimmed().replace(';', ' ') + ")";
    return filters.join(";;");
}

/// The first extension that a filter names, without its dot.
QString SuffixOf(const std::string& filter)
{
    static const QRegularExpression extension(R"(\*\.(\w+))");
    return extension.match(Shown(filter)).captured(1);
}

/// A box that knows whether it was left without an answer.
class QuestionBox final : public QMessageBox {
public:
    using QMessageBox::QMessageBox;
    bool left = false;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        left |= event->key() == Qt::Key_Escape;
        QMessageBox::keyPressEvent(event);
    }
    void closeEvent(QCloseEvent* event) override
    {
        left = true;
        QMessageBox::closeEvent(event);
    }
};

void FitOnPage(QPainter& painter, const QImage& picture)
{
    const QRectF page(QPointF(), QSizeF(painter.viewport().size()));
    const auto size = QSizeF(picture.size()).scaled(page.size(), Qt::KeepAspectRatio);
    painter.drawImage(QRectF(QPointF(), size), picture);
}

} // namespace

// --- boxes -----------------------------------------------------------------------------------------------------------

void QtDialogs::Message(Icon icon, const std::string& text, const std::string& title)
{
    if (NobodyThere()) return;
    QMessageBox box(IconOf(icon), Shown(title), Shown(text), QMessageBox::Ok, Above());
    box.setTextFormat(Qt::PlainText); // the text may quote a packet
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    box.exec();
}

Answer QtDialogs::Question(const std::string& text, const std::string& title)
{
    if (NobodyThere()) return Answer::No;
    QuestionBox box(QMessageBox::Question, Shown(title), Shown(text), QMessageBox::Yes | QMessageBox::No, Above());
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::No);
    box.setEscapeButton(QMessageBox::No);
    const int button = box.exec();
    return button == QMessageBox::Yes ? Answer::Yes : box.left ? Answer::Left : Answer::No;
}

std::optional<std::string> QtDialogs::Input(const std::string& prompt, const std::string& title,
                                            const std::string& offered)
{
    if (NobodyThere()) return {};
    QInputDialog dialog(Above());
    dialog.setWindowTitle(Shown(title));
    dialog.setLabelText(Shown(prompt));
    dialog.setTextValue(Shown(offered));
    if (auto* label = dialog.findChild<QLabel*>(); label != nullptr) {
        constexpr int lineLength = 60;
        const int line = label->fontMetrics().averageCharWidth() * lineLength;
        label->setWordWrap(label->sizeHint().width() > line);
        label->setMinimumWidth(line);
    }
    if (dialog.exec() != QDialog::Accepted) return {};
    return Typed(dialog.textValue());
}

std::optional<std::string> QtDialogs::File(const FileRequest& request)
{
    if (NobodyThere()) return {};
    QFileDialog dialog(Above(), Shown(request.title));
    const auto folder = QString::fromStdString(DiskFiles().Resolved(request.folder));
    if (request.save) QDir().mkpath(folder);
    dialog.setDirectory(folder);
    const auto everything = request.save ? QString() : QCoreApplication::translate("Files", ";;All Files (*)");
    dialog.setNameFilter(FilterOf(request.filter) + everything);
    dialog.setAcceptMode(request.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(request.save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    if (request.save) dialog.setDefaultSuffix(SuffixOf(request.filter));
    if (!request.name.empty()) dialog.selectFile(Shown(request.name));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return dialog.selectedFiles().constFirst().toStdString();
}

std::optional<Font> QtDialogs::PickFont(const std::string& title, const Font& present)
{
    if (NobodyThere()) return {};
    QFont start = QApplication::font();
    if (!present.face.empty()) start.setFamily(Shown(present.face));
    if (present.size > 0) start.setPointSizeF(present.size);
    QFontDialog dialog(start, Above());
    dialog.setWindowTitle(Shown(title));
    if (dialog.exec() != QDialog::Accepted) return {};
    const auto chosen = dialog.selectedFont();
    return Font{Typed(chosen.family()), chosen.pointSizeF()};
}

std::unique_ptr<Progress> QtDialogs::ShowProgress(const std::string& title)
{
    return std::make_unique<QtProgress>(Above(), Shown(title));
}

// --- modal forms -----------------------------------------------------------------------------------------------------

void QtDialogs::ShowModal(Form& form)
{
    if (NobodyThere()) return;
    QWidget* const window = WindowOf ? WindowOf(form) : nullptr;
    if (window != nullptr) window->setWindowModality(Qt::ApplicationModal);
    QEventLoop loop;
    const int watch = form.Watch([&](const Change&) {
        if (!form.Visible()) loop.quit();
    });
    const auto tidy = qScopeGuard([&] {
        form.Unwatch(watch);
        if (window != nullptr) window->setWindowModality(Qt::NonModal);
    });
    form.Show();
    if (form.Visible()) loop.exec(QEventLoop::DialogExec);
    form.Hide(); // the program ends: the loop was left with the form still up
}

void QtDialogs::LetTimePass(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(std::max(0, milliseconds), &loop, &QEventLoop::quit);
    loop.exec();
}

// --- paper, the web, the bell ----------------------------------------------------------------------------------------

std::vector<std::string> QtDialogs::Printers()
{
    std::vector<std::string> names;
    for (const auto& name : QPrinterInfo::availablePrinterNames()) names.push_back(Typed(name));
    names.emplace_back(PdfPrinter);
    return names;
}

std::string QtDialogs::Print(const std::string& printerName, Control& surface)
{
    const auto picture = PictureOf ? PictureOf(surface) : QImage();
    if (picture.isNull()) return "There is no picture to print.";
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(picture.width() > picture.height() ? QPageLayout::Landscape : QPageLayout::Portrait);
    if (printerName == PdfPrinter) {
        const auto path = File({true, "Print To File", "PDF Files | *.pdf", Typed(QDir::homePath()), "map.pdf"});
        if (!path) return {};
        printer.setOutputFileName(QString::fromStdString(*path));
    } else {
        printer.setPrinterName(Shown(printerName));
        if (!printer.isValid()) return "The printer \"" + printerName + "\" is not there.";
    }
    QPainter painter;
    if (!painter.begin(&printer)) return "The printer does not take the page.";
    FitOnPage(painter, picture);
    return painter.end() ? std::string() : "The page was not printed.";
}

void ShowImage(Surface& onto, const QImage& image)
{
    QTemporaryFile file; // a surface takes its pictures from files
    if (image.isNull() || !file.open() || !image.save(&file, "BMP") || !file.flush()) return;
    onto.SetSize(image.width(), image.height());
    onto.Clear();
    onto.Picture(file.fileName().toStdString(), image.width(), image.height());
}

void QtDialogs::CaptureScreen(Surface& onto)
{
    LetTimePass(BoxGoneMs);
    auto* window = Above();
    auto picture = window == nullptr ? QPixmap() : window->screen()->grabWindow();
    // some desktops give no program a picture of the screen; the window holds what the operator is after
    if (picture.isNull() && window != nullptr) picture = window->grab();
    ShowImage(onto, picture.toImage());
}

void QtDialogs::Browse(const std::string& address)
{
    if (!QDesktopServices::openUrl(QUrl::fromUserInput(Shown(address))))
        Message(Icon::Information, "No web browser could be started. The address is:\n" + address, ProgramTitle);
}

void QtDialogs::Bell()
{
    QApplication::beep();
}

} // namespace halvern
