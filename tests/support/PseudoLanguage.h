// SPDX-FileCopyrightText: 2026 The Flitmark authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QAction>
#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QPaintEngine>
#include <QRegularExpression>
#include <QTextEdit>
#include <QTranslator>
#include <QWidget>

namespace flitmark {

/// A language that shows which texts were not translated and which have no room: each text in brackets, accented, and
/// by two fifths longer.
class PseudoLanguage final : public QTranslator
{
public:
    static QString of(const char* source)
    {
        QString text = QString::fromUtf8(source).replace(u'…', "...");
        const qsizetype length = text.size();
        for (const auto& [plain, accented] : {std::pair(u'a', u'å'), {u'e', u'ê'}, {u'o', u'ö'}, {u'u', u'ü'}}) {
            text.replace(plain, accented);
        }
        for (qsizetype i = 0; i < length * 2 / 5 + 1; ++i) {
            text += i % 6 == 2 ? u' ' : u'·';
        }
        return u'[' + text + u']';
    }
    bool isEmpty() const override { return false; }
    QString translate(const char*, const char* source, const char* comment, int) const override
    {
        return qstrcmp(comment, "date pattern") == 0 ? QString() : of(source);
    }
};

/// Takes down the texts that a widget paints.
class PaintedTexts final : public QImage
{
public:
    explicit PaintedTexts(QWidget& widget)
        : QImage(widget.size().expandedTo({1, 1}), Format_ARGB32)
    {
        widget.render(this, {}, {}, {});
    }
    QPaintEngine* paintEngine() const override { return &m_engine; }
    const QString& all() const { return m_engine.all; }
    bool areInside() const { return m_engine.areInside; }

private:
    struct Engine final : QPaintEngine
    {
        Engine()
            : QPaintEngine(AllFeatures)
        {
        }
        bool begin(QPaintDevice*) override { return true; }
        bool end() override { return true; }
        void updateState(const QPaintEngineState&) override {}
        void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
        void drawPath(const QPainterPath&) override {}
        void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
        Type type() const override { return User; }
        void drawTextItem(const QPointF& at, const QTextItem& item) override
        {
            all += item.text();
            // Spaces at the end of a row may hang over.
            const double width = item.text().trimmed().isEmpty() ? 0 : item.width();
            const QPointF left = painter()->deviceTransform().map(at);
            const QRectF room(-1, -1, paintDevice()->width() + 2, paintDevice()->height() + 2);
            areInside &= room.contains(left) && room.contains(left + QPointF(width, 0));
        }
        QString all;
        bool areInside = true;
    };

    mutable Engine m_engine;
};

/// What is wrong with the texts of `window` and all that can be seen in it, one line for each. What users write has no
/// letters in such a test.
inline QStringList faultsInTexts(QWidget& window)
{
    QStringList faults;
    const auto check = [&faults](const char* what, const QString& text) {
        static const QRegularExpression bracketed("\\[[^\\[\\]]*\\]");
        // Paths, tags and the names of keys are the same in every language, and the locale writes dates.
        static const QRegularExpression same("[~/][^ \\[\\]]*|#\\S+|[⌘⌥]\\w|\\bQ\\b|\\.md|Inbox|Thursday, Jan");
        QString rest = text;
        while (rest.contains(bracketed)) {
            rest.remove(bracketed);
        }
        rest.remove(same);
        if (std::any_of(rest.begin(), rest.end(), [](QChar letter) { return letter.isLetter() || letter == u'…'; })) {
            faults.append(QLatin1String(what) + QStringLiteral(": ") + text);
        }
    };
    for (QWidget* widget : QList<QWidget*>{&window} + window.findChildren<QWidget*>()) {
        if (!widget->isVisible() || widget->window() != &window) {
            continue;
        }
        const PaintedTexts painted(*widget);
        check("shown", painted.all());
        const QWidget* parent = widget->parentWidget();
        const bool hasRoom = widget->isWindow() || painted.all().isEmpty() ||
                             (widget->x() >= 0 && widget->geometry().right() < parent->width());
        if (!painted.areInside() || !hasRoom) {
            faults.append(QStringLiteral("cut: ") + painted.all());
        }
        check("name", widget->accessibleName());
        check("description", widget->accessibleDescription());
        check("tooltip", widget->toolTip());
        check("title", widget->isWindow() ? widget->windowTitle() : QString());
        for (const char* property : {"placeholderText", "currentText"}) {
            check(property, widget->property(property).toString());
        }
        for (const QAction* action : widget->actions()) {
            check("item", action->text());
        }
    }
    return faults;
}

} // namespace flitmark
