// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Description.h"

#include "Appearance.h"
#include "WaitUntil.h"

#include <QAbstractAnimation>
#include <QAccessible>
#include <QApplication>
#include <QMetaEnum>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QRegularExpression>
#include <QWidget>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString number(qreal value)
{
    return QString::number(qRound(value * 10) / 10.0);
}

QString place(const QRectF &rect)
{
    return u"%1,%2 %3x%4"_s.arg(
        number(rect.x()), number(rect.y()), number(rect.width()), number(rect.height()));
}

QString quoted(QString text)
{
    return u'"' + text.replace(u'\n', u"\\n"_s).replace(QChar(QChar::LineSeparator), u"\\n"_s)
        + u'"';
}

// Notes what is painted, one line an operation.
class PaintNotes final : public QPaintEngine
{
public:
    PaintNotes()
        : QPaintEngine(AllFeatures)
    {}

    bool begin(QPaintDevice *) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState &) override {}
    Type type() const override { return User; }

    void drawPath(const QPainterPath &path) override
    {
        const auto brush = painter()->brush();
        const auto pen = painter()->pen();
        QString how;
        if (brush.style() != Qt::NoBrush)
            how += u" fill "_s + color(brush.color());
        if (pen.style() != Qt::NoPen)
            how += u" line "_s + number(pen.widthF()) + u' ' + color(pen.color());
        const auto bounds = map(path.boundingRect());
        const auto points = path.elementCount();
        note(u"%1 of %2%3%4"_s.arg(place(bounds)).arg(points).arg(how, clip()));
    }
    void drawPolygon(const QPointF *points, int count, PolygonDrawMode) override
    {
        QPainterPath path;
        path.addPolygon(QPolygonF(QList(points, points + count)));
        drawPath(path);
    }
    void drawPixmap(const QRectF &rect, const QPixmap &pixmap, const QRectF &) override
    {
        drawImage(rect, pixmap.toImage(), {}, {});
    }
    // The shape by its check sum, the colour by its most opaque pixel.
    void drawImage(const QRectF &rect,
                   const QImage &image,
                   const QRectF &,
                   Qt::ImageConversionFlags) override
    {
        QColor strongest(Qt::transparent);
        QByteArray alphas;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) {
                const auto pixel = image.pixelColor(x, y);
                alphas.append(char(pixel.alpha()));
                if (pixel.alpha() > strongest.alpha())
                    strongest = pixel;
            }
        note(u"%1 image %2 %3"_s.arg(place(map(rect)), color(strongest))
                 .arg(qChecksum(alphas), 4, 16, QChar(u'0')));
    }
    void drawTextItem(const QPointF &point, const QTextItem &item) override
    {
        const auto font = item.font();
        const auto at = painter()->deviceTransform().map(point) + m_origin;
        note(u"%1,%2 %3 %4/%5%6 %7"_s.arg(number(at.x()), number(at.y()), quoted(item.text()))
                 .arg(font.pixelSize())
                 .arg(font.weight())
                 .arg(font.underline() ? u" underlined"_s : QString(),
                      color(painter()->pen().color()))
             + clip());
    }

    void setOrigin(const QPoint &origin) { m_origin = origin; }
    QStringList take() { return std::exchange(m_notes, {}); }

private:
    void note(const QString &what)
    {
        if (painter()->opacity() > 0)
            m_notes << u"    "_s + what;
    }
    QRectF map(const QRectF &rect) const
    {
        return painter()->deviceTransform().mapRect(rect).translated(m_origin);
    }
    QString color(QColor color) const
    {
        color.setAlphaF(color.alphaF() * float(painter()->opacity()));
        return color.name(QColor::HexArgb);
    }
    QString clip() const
    {
        return painter()->hasClipping() ? u" within "_s + place(map(painter()->clipBoundingRect()))
                                        : QString();
    }

    QPointF m_origin;
    QStringList m_notes;
};

// Paper for the notes, of one dot a logical pixel.
class Paper final : public QPaintDevice
{
public:
    QPaintEngine *paintEngine() const override { return &notes; }
    int metric(PaintDeviceMetric metric) const override
    {
        if (metric == PdmDevicePixelRatioScaled)
            return int(devicePixelRatioFScale());
        return metric == PdmDevicePixelRatio ? 1 : 96;
    }

    mutable PaintNotes notes;
};

// What a screen reader tells of the widget; empty when it is only a container.
QString spoken(QWidget &widget)
{
    const auto *accessible = QAccessible::queryAccessibleInterface(&widget);
    const auto role = accessible->role();
    if (role == QAccessible::Client || role == QAccessible::NoRole)
        return {};
    QString words =
        QString::fromLatin1(QMetaEnum::fromType<QAccessible::Role>().valueToKey(int(role)));
    words += u' ' + quoted(accessible->text(QAccessible::Name));
    if (const auto description = accessible->text(QAccessible::Description); !description.isEmpty())
        words += u" – "_s + quoted(description);
    if (!widget.toolTip().isEmpty())
        words += u" tip "_s + quoted(widget.toolTip());
    const auto state = accessible->state();
    for (const auto &[is, name] : {std::pair(state.disabled, u" disabled"_s),
                                   {state.readOnly, u" read-only"_s},
                                   {state.checked, u" checked"_s}})
        if (is)
            words += name;
    if (widget.testAttribute(Qt::WA_SetCursor) && widget.cursor().shape() == Qt::PointingHandCursor)
        words += u" pointing"_s;
    return words;
}

void describe(QWidget &widget, const QWidget &window, Paper &paper, QStringList &lines)
{
    const QRect rect(widget.mapTo(&window, QPoint()), widget.size());
    paper.notes.setOrigin(rect.topLeft());
    widget.render(
        &paper, {}, {}, widget.isWindow() ? QWidget::DrawWindowBackground : QWidget::RenderFlags());
    const auto painted = paper.notes.take();
    const auto words = spoken(widget);
    if (!painted.isEmpty() || !words.isEmpty())
        lines << (place(rect) + u' ' + words).trimmed() << painted;
    for (auto *child : widget.children())
        if (auto *part = qobject_cast<QWidget *>(child))
            if (!part->isWindow() && part->isVisibleTo(&window))
                describe(*part, window, paper, lines);
}

// What Tab goes through, from the first control on.
QString tabOrder(const QWidget &window)
{
    QStringList names;
    for (auto *widget = window.nextInFocusChain(); widget != &window;
         widget = widget->nextInFocusChain())
        if ((widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isVisibleTo(&window)
            && !widget->focusProxy() && !widget->isWindow())
            names << QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
    return names.join(u" · "_s);
}

bool isMoving(const QWidget &window)
{
    const auto animations = window.findChildren<QAbstractAnimation *>();
    return std::ranges::any_of(animations, [](const QAbstractAnimation *animation) {
        return animation->state() == QAbstractAnimation::Running;
    });
}

// The same words once; where they differ "light|dark".
QString merged(const QString &light, const QString &dark)
{
    static const QRegularExpression wordEnd(u"(?<=[ \n])"_s);
    const auto lightWords = light.split(wordEnd);
    const auto darkWords = dark.split(wordEnd);
    if (lightWords.size() != darkWords.size())
        return light + u"IN THE DARK SCHEME\n"_s + dark;
    QString words;
    for (qsizetype i = 0; i < lightWords.size(); ++i)
        words += lightWords[i] == darkWords[i] ? lightWords[i]
                                               : lightWords[i].chopped(1) + u'|' + darkWords[i];
    return words;
}

} // namespace

QString describe(QWidget &window)
{
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(waitUntil([&window] { return !isMoving(window); }));
    QApplication::processEvents();
    Paper paper;
    QStringList lines;
    describe(window, window, paper, lines);
    if (const auto order = tabOrder(window); !order.isEmpty())
        lines << u"Tab: "_s + order;
    return lines.join(u'\n') + u'\n';
}

QString describeInBothSchemes(QWidget &window)
{
    if (auto *focused = window.focusWidget())
        focused->clearFocus();
    const auto light = describe(window);
    Appearance::setColorScheme(ColorScheme::Dark);
    const auto dark = describe(window);
    Appearance::setColorScheme(ColorScheme::Light);
    const auto again = describe(window); // what comes back is what was there
    return merged(light, dark) + (again == light ? QString() : u"LIGHT AGAIN\n"_s + again);
}

Story::Story(QWidget &window)
    : m_window(window)
{
    begin();
}

void Story::begin()
{
    m_lines = describe(m_window).split(u'\n');
}

void Story::tell(const QString &step)
{
    const auto lines = describe(m_window).split(u'\n');
    m_text += u"== "_s + step + u'\n';
    for (const auto &line : std::as_const(m_lines))
        if (!lines.contains(line))
            m_text += u'-' + line + u'\n';
    for (const auto &line : lines)
        if (!m_lines.contains(line))
            m_text += u'+' + line + u'\n';
    m_lines = lines;
}
