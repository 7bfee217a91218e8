// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/HelpWindow.h"

#include <QtWidgets>

namespace halvern {

HelpWindow::HelpWindow(QWidget* parent) : QDialog(parent), browser(new QTextBrowser(this)), steps(new QWidget(this))
{
    setObjectName("Help");
    browser->setOpenExternalLinks(true);
    browser->setAccessibleName(tr("Help"));
    auto* row = new QHBoxLayout(steps);
    row->setContentsMargins({});
    const auto add = [&](const QString& text, auto slot, auto allowed) {
        auto* button = new QPushButton(text, steps);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, browser, slot);
        if constexpr (!std::is_null_pointer_v<decltype(allowed)>) {
            button->setEnabled(false);
            connect(browser, allowed, button, &QWidget::setEnabled);
        }
        row->addWidget(button);
    };
    add(tr("&Back"), &QTextBrowser::backward, &QTextBrowser::backwardAvailable);
    add(tr("&Forward"), &QTextBrowser::forward, &QTextBrowser::forwardAvailable);
    add(tr("&Contents"), &QTextBrowser::home, nullptr);
    row->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(steps);
    layout->addWidget(browser);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::hide);
    layout->addWidget(buttons);
}

void HelpWindow::ShowPage(const QString& path)
{
    steps->show();
    if (QFileInfo::exists(path))
        browser->setSource(QUrl::fromLocalFile(path));
    else
        browser->setPlainText(tr("The help is not installed. It should be at %1.").arg(path));
    ComeUp(tr("Halvern Help"));
}

void HelpWindow::ShowTextFile(const QString& path)
{
    steps->hide();
    QFile file(path);
    const bool open = file.open(QIODevice::ReadOnly);
    browser->setPlainText(open ? QString::fromUtf8(file.readAll()) : file.errorString());
    ComeUp(QFileInfo(path).fileName());
}

void HelpWindow::ComeUp(const QString& title)
{
    setWindowTitle(title);
    const auto room = screen()->availableGeometry().size();
    resize(QSize(fontMetrics().averageCharWidth() * 110, fontMetrics().height() * 40).boundedTo(room * 0.9));
    // above a modal form too, and to be read beside it
    setWindowModality(QApplication::activeModalWidget() != nullptr ? Qt::ApplicationModal : Qt::NonModal);
    show();
    raise();
    activateWindow();
}

} // namespace halvern
