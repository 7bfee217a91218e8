// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/screen/QtProgress.h"

#include <algorithm>
#include <cmath>

#include <QCoreApplication>
#include <QFontMetrics>
#include <QLocale>

namespace halvern {
namespace {

constexpr int Steps = 1000;       ///< of the bar
constexpr int ShownEvery = 50;    ///< milliseconds of work between two turns of the windows
constexpr int LongestTurn = 20;   ///< milliseconds that a turn may take
constexpr int AppearsAfter = 300; ///< milliseconds
constexpr int WidestWords = 60;   ///< characters, so that the window keeps its width
constexpr double MillisecondsASecond = 1000;

QString TimeLeft(double seconds)
{
    const auto whole = static_cast<long long>(std::ceil(seconds));
    if (whole < 60) return QCoreApplication::translate("Progress", "%n s left", nullptr, static_cast<int>(whole));
    return QCoreApplication::translate("Progress", "%1 min %2 s left").arg(whole / 60).arg(whole % 60);
}

} // namespace

QString ProgressWords(const ReadSoFar& soFar, double seconds)
{
    const QLocale locale;
    const double part =
        soFar.of == 0 ? 0 : std::min(1.0, static_cast<double>(soFar.bytes) / static_cast<double>(soFar.of));
    const auto number = [&](double count) { return locale.toString(static_cast<qulonglong>(count)); };
    const auto lines = static_cast<double>(soFar.lines);
    auto words = QCoreApplication::translate("Progress", "%1 lines").arg(number(lines));
    if (part > 0) words += QCoreApplication::translate("Progress", " of about %1").arg(number(lines / part));
    if (seconds <= 0) return words;
    words += QCoreApplication::translate("Progress", ", %1 a second").arg(number(lines / seconds));
    if (part > 0 && part < 1) words += ", " + TimeLeft(seconds * (1 - part) / part);
    return words;
}

QtProgress::QtProgress(QWidget* above, const QString& title)
    : dialog(QString(), QCoreApplication::translate("Progress", "&Stop"), 0, Steps, above)
{
    dialog.setWindowTitle(title);
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.setAutoClose(false);
    dialog.setAutoReset(false);
    dialog.setMinimumDuration(AppearsAfter);
    dialog.setMinimumWidth(QFontMetrics(dialog.font()).averageCharWidth() * WidestWords);
    dialog.setValue(0);
    sinceStart.start();
    sinceShown.start();
}

bool QtProgress::Show(const ReadSoFar& soFar)
{
    if (!sinceShown.hasExpired(ShownEvery)) return true;
    if (soFar.of > 0) // what a packed file still holds is guessed, so the bar may be full a little early
        dialog.setValue(static_cast<int>(std::min<std::uint64_t>(Steps - 1, soFar.bytes * Steps / soFar.of)));
    dialog.setLabelText(ProgressWords(soFar, static_cast<double>(sinceStart.elapsed()) / MillisecondsASecond));
    QCoreApplication::processEvents(QEventLoop::AllEvents, LongestTurn);
    sinceShown.restart();
    return !dialog.wasCanceled();
}

} // namespace halvern
