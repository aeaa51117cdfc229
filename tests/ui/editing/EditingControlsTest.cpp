// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Approved.h"
#include "PasteEnabledSecureTextField.h"
#include "PasteEnabledTextField.h"
#include "PasteEnabledTextView.h"
#include "WaitUntil.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMimeData>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 capsLock = 0x2;
constexpr quint32 numLock = 0x10;

struct Press
{
    Qt::Key key = Qt::Key_V;
    Qt::KeyboardModifiers modifiers = Qt::ControlModifier;
    quint32 nativeModifiers = 0;

    [[nodiscard]] QKeyEvent event() const
    {
        return {QEvent::KeyPress, key, modifiers, 0, 0, nativeModifiers};
    }
};

// A window with one control of each kind. Each starts with "abc", of which "b" is selected.
class EditingControlsTest : public testing::Test
{
protected:
    EditingControlsTest()
    {
        auto *layout = new QVBoxLayout(&m_window);
        for (auto *control : controls())
            layout->addWidget(control);
        m_window.show();
        m_window.activateWindow();
        EXPECT_TRUE(waitUntil([this] { return m_window.isActiveWindow(); }));
        reset();
    }

    std::array<QWidget *, 3> controls() { return {m_secure, m_plain, m_view}; }

    void reset()
    {
        for (QLineEdit *field :
             {static_cast<QLineEdit *>(m_secure), static_cast<QLineEdit *>(m_plain)}) {
            field->setText(u"abc"_s);
            field->setSelection(1, 1);
        }
        m_view->setPlainText(u"abc"_s);
        auto cursor = m_view->textCursor();
        cursor.setPosition(1);
        cursor.setPosition(2, QTextCursor::KeepAnchor);
        m_view->setTextCursor(cursor);
        copy(u"X\nY"_s);
    }

    static void copy(const QString &text) { QGuiApplication::clipboard()->setText(text); }

    static void press(QWidget *control, const Press &press)
    {
        control->setFocus();
        auto event = press.event();
        QCoreApplication::sendEvent(control, &event);
    }

    QString name(const QWidget *control) const
    {
        return control == m_secure ? u"secure"_s : control == m_plain ? u"plain"_s : u"view"_s;
    }
    // The control's text and what is selected of it.
    QString state(const QWidget *control) const
    {
        if (control == m_view)
            return m_view->toPlainText() + u'|' + m_view->textCursor().selectedText();
        const auto *field = qobject_cast<const QLineEdit *>(control);
        return field->text() + u'|' + field->selectedText();
    }
    // The texts of the secure field, the plain field and the view.
    QStringList texts() const { return {m_secure->text(), m_plain->text(), m_view->toPlainText()}; }

    // The titles of the control's context menu; the one that is named is chosen.
    QStringList menu(QWidget *control, const QString &chosen = {})
    {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, {});
        QCoreApplication::sendEvent(control, &event);
        auto *menu = control->findChild<QMenu *>();
        QStringList titles;
        for (auto *action : menu->actions()) {
            titles.append(action->text());
            if (!chosen.isEmpty() && action->text() == chosen)
                action->trigger();
        }
        delete menu;
        return titles;
    }

    QWidget m_window;
    PasteEnabledSecureTextField *m_secure = new PasteEnabledSecureTextField;
    PasteEnabledTextField *m_plain = new PasteEnabledTextField;
    PasteEnabledTextView *m_view = new PasteEnabledTextView;
};

} // namespace

// Every shortcut and every menu item, in each control, that can be edited or not.
TEST_F(EditingControlsTest, doWhatIsApproved)
{
    const auto control = Qt::ControlModifier;
    const std::pair<QString, Press> presses[] = {
        {u"paste"_s, {}},
        {u"paste with Caps Lock"_s, {.nativeModifiers = capsLock}},
        {u"paste with Shift"_s, {.modifiers = control | Qt::ShiftModifier}},
        {u"paste with Num Lock"_s, {.nativeModifiers = numLock}},
        {u"paste with Super"_s, {.modifiers = control | Qt::MetaModifier}},
        {u"cut"_s, {.key = Qt::Key_X}},
        {u"copy"_s, {.key = Qt::Key_C}},
        {u"select all"_s, {.key = Qt::Key_A}},
        {u"another"_s, {.key = Qt::Key_K}},
    };
    QString told;
    for (const bool isReadOnly : {false, true})
        for (auto *input : controls()) {
            const auto perform = [&](const QString &what, const std::function<QString()> &action) {
                reset();
                input->setProperty("readOnly", isReadOnly);
                const auto answer = action();
                told +=
                    u"%1%2, %3: %4 %5|%6|%7\n"_s.arg(isReadOnly ? u"read-only "_s : QString(),
                                                     name(input),
                                                     what,
                                                     answer,
                                                     state(input),
                                                     QGuiApplication::clipboard()->text(),
                                                     input->hasFocus() ? u"focused"_s : QString());
            };
            for (const auto &[what, pressed] : presses) {
                perform(what, [&] { return press(input, pressed), QString(); });
                perform(what + u" without the focus"_s, [&] {
                    input->clearFocus();
                    const bool isTaken =
                        dynamic_cast<EditingInput &>(*input).performKeyEquivalent(pressed.event());
                    return isTaken ? u"taken"_s : u"left"_s;
                });
            }
            perform(u"paste an image"_s, [&] {
                auto *image = new QMimeData;
                image->setData(u"image/png"_s, "\x89PNG");
                QGuiApplication::clipboard()->setMimeData(image);
                return press(input, {}), QString();
            });
            for (const auto &title : menu(input))
                perform(u"menu "_s + title, [&] { return menu(input, title), QString(); });
        }
    EXPECT_TRUE(isApproved(u"editing-controls"_s, told.replace(u"X\nY"_s, u"X\\nY"_s)));
}

TEST_F(EditingControlsTest, loseNothingOnAnyRoadIntoAField)
{
    const auto lines = u"one\ntwo\r\nthree\u2028four\u2029"_s + QString(350'000, u'长');
    QInputMethodEvent committed;
    committed.setCommitString(lines);
    const std::function<void()> roads[] = {
        [this] { press(m_plain, {}); },
        [&] { QCoreApplication::sendEvent(m_plain, &committed); },
    };
    for (const auto &road : roads) {
        m_plain->setText(u"><"_s);
        m_plain->setCursorPosition(1);
        copy(lines);
        road();
        EXPECT_TRUE(m_plain->text() == u'>' + lines + u'<') << m_plain->text().size();
        m_plain->insert(u"|"_s);
        EXPECT_TRUE(m_plain->text() == u'>' + lines + u"|<"_s);
    }
    m_plain->selectAll();
    press(m_plain, {.key = Qt::Key_X});
    EXPECT_TRUE(QGuiApplication::clipboard()->text() == u'>' + lines + u"|<"_s);
    EXPECT_EQ(m_plain->text(), QString());
    m_plain->undo();
    EXPECT_TRUE(m_plain->text() == u'>' + lines + u"|<"_s);
    m_plain->setText(u"︙"_s);
    EXPECT_EQ(m_plain->text(), u"︙"_s);
}

TEST_F(EditingControlsTest, takeWhatAnInputMethodComposes)
{
    for (auto *control : controls()) {
        control->setFocus();
        QInputMethodEvent composing(u"ni hao"_s, {});
        QCoreApplication::sendEvent(control, &composing);
        EXPECT_FALSE(texts().join(u' ').contains("ni"_L1)) << "before it is chosen";
        QInputMethodEvent chosen;
        chosen.setCommitString(u"你好"_s);
        QCoreApplication::sendEvent(control, &chosen);
    }
    EXPECT_EQ(texts(), QStringList(3, u"a你好c"_s));
}
