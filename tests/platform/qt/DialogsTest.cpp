// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/screen/QtDialogs.h"

#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include "support/Station.h"
#include "support/qt/Application.h"

namespace halvern {
namespace {

struct DialogsTest : ::testing::Test {
    /// What the operator will do with the dialog of this kind that comes up next.
    template <class Dialog> void Then(std::function<void(Dialog&)> act)
    {
        QTimer::singleShot(0, &here, [act = std::move(act)] {
            auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            act(*dialog);
        });
    }
    /// Types a path into a file dialog and accepts it.
    void ThenSave(const std::string& path)
    {
        Then<QFileDialog>([path](QFileDialog& dialog) {
            dialog.findChild<QLineEdit*>("fileNameEdit")->setText(QString::fromStdString(path));
            QMetaObject::invokeMethod(&dialog, "accept");
        });
    }

    QtDialogs real;
    Dialogs& dialogs = real; // with the usual titles
    QObject here;
    const test::TemporaryFolder folder;
};

TEST_F(DialogsTest, AQuestionOffersTheHarmlessAnswer)
{
    const std::pair<QMessageBox::StandardButton, Answer> presses[] = {
        {QMessageBox::Yes, Answer::Yes}, {QMessageBox::No, Answer::No}, {QMessageBox::NoButton, Answer::Left}};
    for (const auto& [button, answer] : presses) {
        Then<QMessageBox>([button = button](QMessageBox& box) {
            EXPECT_EQ(box.windowTitle(), "Halvern Print Map");
            EXPECT_EQ(box.standardButton(box.defaultButton()), QMessageBox::No);
            if (button == QMessageBox::NoButton)
                box.close();
            else
                box.button(button)->click();
        });
        EXPECT_EQ(dialogs.Question("White?", "Halvern Print Map"), answer);
    }
}

TEST_F(DialogsTest, AFileDialogStartsInItsFolderAndGivesAPath)
{
    folder.Put("Log/old.log", "x");
    Then<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Open Log File For Input");
        EXPECT_EQ(dialog.directory().absolutePath().toStdString(), folder.Path() + "/Log");
        EXPECT_EQ(dialog.nameFilters(), (QStringList{"Log Files (*.log)", "All Files (*)"}));
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
        dialog.reject();
    });
    EXPECT_FALSE(dialogs.File({false, "Open Log File For Input", "Log Files | *.log", folder.Path() + "\\LOG\\", ""}));

    ThenSave(folder.Path() + "/log/new");
    EXPECT_EQ(dialogs.File({true, "Save", "Log Files | *.log", folder.Path() + "/log", "Untitled.log"}),
              folder.Path() + "/log/new.log");
}

TEST_F(DialogsTest, AModalFormRunsEventsUntilItHides)
{
    Controls all;
    Form form(all, "AddPathFrm", "Create Path");
    QWidget window;
    real.WindowOf = [&](Form&) { return &window; };
    int ticks = 0;
    QTimer other;
    QObject::connect(&other, &QTimer::timeout, [&] {
        EXPECT_EQ(window.windowModality(), Qt::ApplicationModal);
        if (++ticks == 3) form.Hide();
    });
    other.start(5);
    dialogs.ShowModal(form);
    EXPECT_EQ(ticks, 3);
    EXPECT_EQ(window.windowModality(), Qt::NonModal);

    form.OnActivate = [&] { form.Hide(); };
    dialogs.ShowModal(form); // hides while it comes up: no loop is left waiting
    form.Unload();
    form.OnLoad = [] { throw RuntimeFailure(failure::Overflow, "Overflow"); };
    EXPECT_THROW(dialogs.ShowModal(form), RuntimeFailure);
    EXPECT_EQ(window.windowModality(), Qt::NonModal);
}

TEST_F(DialogsTest, APictureIsPrintedToAFile)
{
    Controls all;
    Form form(all, "MapFrm", "Map");
    EXPECT_FALSE(dialogs.Print("PDF File", form).empty()) << "nobody lends a picture";
    real.PictureOf = [](Control&) {
        QImage picture(300, 100, QImage::Format_RGB32);
        picture.fill(Qt::red);
        return picture;
    };
    EXPECT_FALSE(dialogs.Print("no such printer", form).empty());
    EXPECT_EQ(dialogs.Printers().back(), "PDF File");
    ThenSave(folder.Path() + "/map.pdf");
    EXPECT_EQ(dialogs.Print("PDF File", form), "");
    std::ifstream pdf(folder.Path() + "/map.pdf", std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(pdf), {}};
    EXPECT_EQ(bytes.substr(0, 5), "%PDF-");
    EXPECT_NE(bytes.find("/Width 300"), std::string::npos);
}

} // namespace
} // namespace halvern
