// Copyright 2026 The Vallorin developers. SPDX-License-Identifier: Apache-2.0
//
// The time left is what the rest takes at the pace so far.
#include "RenderProgress.h"

#include "SpokenTime.h"
#include "Terminal.h"
#include "TerminalText.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstdio>

namespace {

constexpr int kBarWidth = 30;

RenderProgressStyle chosen(RenderProgressStyle style)
{
    if (style != RenderProgressStyle::AUTOMATIC)
        return style;
    return isTerminal(stderr) ? RenderProgressStyle::BAR : RenderProgressStyle::NONE;
}

QByteArray jsonOf(int frame, int done, int total, const QString& error)
{
    QJsonObject object{
        {QStringLiteral("frame"), frame}, {QStringLiteral("done"), done}, {QStringLiteral("total"), total}};
    if (!error.isEmpty())
        object.insert(QStringLiteral("error"), error);
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

} // namespace

RenderProgress::RenderProgress(RenderProgressStyle style, int total, std::FILE* results)
    : _style(chosen(style)), _total(total), _results(results)
{}

RenderProgress::~RenderProgress()
{
    clear();
}

void RenderProgress::show(double fraction)
{
    const int percent = std::max(_percent, static_cast<int>(std::clamp(fraction, 0.0, 1.0) * 100.0 + 1e-9));
    printPercents(percent);
    const bool news = percent != _percent;
    _percent = percent;
    constexpr auto kBetweenDrawings = std::chrono::milliseconds(500);
    if (_style == RenderProgressStyle::BAR && (news || Clock::now() - _drawn > kBetweenDrawings))
        drawBar(fraction);
}

void RenderProgress::frameEnded(int frame, const QString& error)
{
    ++_done;
    if (_style == RenderProgressStyle::BAR)
        drawBar(_percent / 100.0);
    if (_style == RenderProgressStyle::JSON)
        std::fprintf(stderr, "%s\n", jsonOf(frame, _done, _total, error).constData());
    if (_style == RenderProgressStyle::OPENJD)
        printFrame(frame, error);
}

void RenderProgress::printPercents(int percent) const
{
    for (int step = _percent + 1; step <= percent; ++step)
        switch (_style) {
        case RenderProgressStyle::LINES:
            std::fprintf(stderr, "%d%%\n", step);
            break;
        case RenderProgressStyle::PERCENT:
            std::fprintf(_results, "%d%%\n", step);
            break;
        case RenderProgressStyle::OPENJD:
            std::fprintf(_results, "openjd_progress: %d\n", step);
            break;
        default:
            return;
        }
    // A scheduler reads from a pipe, which would be written in blocks.
    if (_style == RenderProgressStyle::PERCENT || _style == RenderProgressStyle::OPENJD)
        std::fflush(_results);
}

void RenderProgress::printFrame(int frame, const QString& error) const
{
    if (error.isEmpty())
        std::fprintf(_results, "openjd_status: frame %d, %d of %d\n", frame, _done, _total);
    else
        writeText(_results,
                  QStringLiteral("openjd_fail: frame %1: %2\n").arg(QString::number(frame), error.simplified()));
    std::fflush(_results);
}

void RenderProgress::clear()
{
    if (!_visible)
        return;
    std::fputs("\r\033[K", stderr);
    std::fflush(stderr);
    _visible = false;
}

QString RenderProgress::timeLeft(double fraction) const
{
    // The first half of a percent is too little to tell the pace by.
    constexpr double kEnough = 0.005;
    if (fraction < kEnough)
        return {};
    const double passed = std::chrono::duration<double>(Clock::now() - _begin).count();
    return QStringLiteral(", %1 left").arg(spokenTime(passed * (1.0 - fraction) / fraction));
}

void RenderProgress::drawBar(double fraction)
{
    const int filled = std::clamp(_percent, 0, 100) * kBarWidth / 100;
    const QString bar = QString(filled, QLatin1Char('#')) + QString(kBarWidth - filled, QLatin1Char('.'));
    std::fprintf(stderr, "\r\033[K[%s] %3d%%  %d of %d frames%s", qPrintable(bar), std::max(0, _percent), _done, _total,
                 qPrintable(timeLeft(fraction)));
    std::fflush(stderr);
    _visible = true;
    _drawn = Clock::now();
}
