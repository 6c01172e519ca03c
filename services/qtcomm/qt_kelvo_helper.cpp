#include "qtcomm/qt_kelvo_helper.h"

#include <QCursor>
#include <QStyle>
#include <QWidget>

#include <cmath>

namespace {

bool IsNameChar(QChar c)
{
    return c.isLetterOrNumber() || c == QLatin1Char('_') || c == QLatin1Char('-');
}

bool IsDigit(QString const &s, int i)
{
    return i < s.size() && s.at(i) >= QLatin1Char('0') && s.at(i) <= QLatin1Char('9');
}

// Index just past a quoted text that starts at `i` (an unterminated quote runs to the end).
int SkipQuoted(QString const &s, int i)
{
    QChar const quote = s.at(i);
    for (++i; i < s.size(); ++i) {
        if (s.at(i) == QLatin1Char('\\'))
            ++i;
        else if (s.at(i) == quote)
            return i + 1;
    }
    return s.size();
}

// Index just past the ')' that closes a url( whose '(' is at `i`.
int SkipUrl(QString const &s, int i)
{
    for (++i; i < s.size(); ++i) {
        QChar const c = s.at(i);
        if (c == QLatin1Char('"') || c == QLatin1Char('\'')) {
            i = SkipQuoted(s, i) - 1;
        } else if (c == QLatin1Char(')')) {
            return i + 1;
        }
    }
    return s.size();
}

bool NumberStartsAt(QString const &s, int i)
{
    if (s.at(i) == QLatin1Char('-'))
        ++i;
    if (i < s.size() && s.at(i) == QLatin1Char('.'))
        ++i;
    return IsDigit(s, i);
}

int ScaledPixels(double value, float scale)
{
    int const scaled = int(float(value) * scale);
    if (scaled == 0 && value != 0.0)
        return value < 0 ? -1 : 1;
    return scaled;
}

} // namespace

namespace QtKelvoHelper {

void UpdateWidgetStyle(QWidget *widget)
{
    if (!widget)
        return;
    QStyle *style = widget->style();
    style->unpolish(widget);
    style->polish(widget);
    widget->update();
}

QString ScaleSheet(QString const &sheet, float scale)
{
    if (!(scale > 0.0f) || std::isinf(scale))
        return sheet;
    QString out;
    out.reserve(sheet.size() + sheet.size() / 8);
    int const n = sheet.size();
    int i = 0;
    while (i < n) {
        QChar const c = sheet.at(i);
        int end = i + 1;
        if (c == QLatin1Char('"') || c == QLatin1Char('\'')) {
            end = SkipQuoted(sheet, i);
        } else if (c == QLatin1Char('/') && i + 1 < n && sheet.at(i + 1) == QLatin1Char('*')) {
            int const close = sheet.indexOf(QLatin1String("*/"), i + 2);
            end = close < 0 ? n : close + 2;
        } else if (sheet.midRef(i, 4).compare(QLatin1String("url("), Qt::CaseInsensitive) == 0) {
            end = SkipUrl(sheet, i + 3);
        } else if (NumberStartsAt(sheet, i)) {
            int j = c == QLatin1Char('-') ? i + 1 : i;
            while (IsDigit(sheet, j))
                ++j;
            if (j < n && sheet.at(j) == QLatin1Char('.') && IsDigit(sheet, j + 1)) {
                for (++j; IsDigit(sheet, j); ++j) {
                }
            }
            bool const isPx = sheet.midRef(j, 2).compare(QLatin1String("px"), Qt::CaseInsensitive) == 0
                              && (j + 2 >= n || !IsNameChar(sheet.at(j + 2)));
            if (isPx) {
                out += QString::number(ScaledPixels(sheet.midRef(i, j - i).toDouble(), scale));
                out += sheet.midRef(j, 2);
                i = j + 2;
                continue;
            }
            end = j; // another unit follows as a name, or nothing does
        } else if (IsNameChar(c) || c == QLatin1Char('#')) {
            // An identifier, id selector or hex colour: digits inside it are no sizes.
            while (end < n && IsNameChar(sheet.at(end)))
                ++end;
        }
        out += sheet.midRef(i, end - i);
        i = end;
    }
    return out;
}

QWidget *findWindow(QWidget const *widget)
{
    return widget ? widget->window() : nullptr;
}

bool CursorInWidget(QWidget const *widget)
{
    if (!widget || !widget->isVisible())
        return false;
    return widget->rect().contains(widget->mapFromGlobal(QCursor::pos()));
}

QPoint TransTipPositionOnView(QPoint const &point, QRect const &tip, QWidget *view, int margin)
{
    if (!view)
        return point;
    margin = qMax(0, margin);
    QRect const area = view->rect().adjusted(margin, margin, -margin, -margin);
    QPoint pos = point;
    // Right/bottom first, then left/top, so that an oversized tip keeps its left/top inside.
    if (pos.x() + tip.width() > area.x() + area.width())
        pos.setX(area.x() + area.width() - tip.width());
    if (pos.x() < area.x())
        pos.setX(area.x());
    if (pos.y() + tip.height() > area.y() + area.height())
        pos.setY(area.y() + area.height() - tip.height());
    if (pos.y() < area.y())
        pos.setY(area.y());
    return pos;
}

} // namespace QtKelvoHelper
