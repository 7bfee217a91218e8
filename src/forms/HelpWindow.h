// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QTextBrowser>

namespace halvern {

/// Where help pages and text files are read.
class HelpWindow final : public QDialog {
    Q_OBJECT
public:
    /// Shows the contents page; nothing is read before it is shown.
    explicit HelpWindow(QWidget* parent);
    /// A page of the help, or, where there is none, a word about that.
    void ShowPage(const QString& path);
    /// A text file, under its own name.
    void ShowTextFile(const QString& path);

private:
    void ComeUp(const QString& title);
    QTextBrowser* browser;
    QWidget* steps; ///< back, forward, contents
};

} // namespace halvern
