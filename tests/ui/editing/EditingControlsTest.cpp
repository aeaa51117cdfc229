// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "EditingShortcut.h"
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
    QEvent::Type type = QEvent::KeyPress;

    [[nodiscard]] QKeyEvent event() const { return {type, key, modifiers, 0, 0, nativeModifiers}; }
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

TEST(EditingShortcut, isControlWithOneKeyAndNothingElse)
{
    const auto control = Qt::ControlModifier;
    const std::pair<Press, bool> cases[] = {
        {{}, true},
        {{.nativeModifiers = numLock}, true},
        {{.nativeModifiers = capsLock}, false},
        {{.modifiers = Qt::NoModifier}, false},
        {{.modifiers = control | Qt::ShiftModifier}, false},
        {{.modifiers = control | Qt::AltModifier}, false},
        {{.modifiers = control | Qt::MetaModifier}, false},
        {{.modifiers = control | Qt::KeypadModifier}, false},
        {{.type = QEvent::KeyRelease}, false},
    };
    for (const auto &[press, qualifies] : cases)
        EXPECT_EQ(editingShortcut(press.event()).has_value(), qualifies)
            << press.modifiers.toInt() << ' ' << press.nativeModifiers;
}

TEST_F(EditingControlsTest, runTheShortcutsOfTheirKind)
{
    const QStringList untouched(3, u"abc"_s);
    const auto inserted = u"aX\nYc"_s;
    // The press, the texts afterwards, and the clipboard where it changes.
    const std::tuple<Press, QStringList, QString> cases[] = {
        {{}, {u"X\nY"_s, inserted, inserted}, {}},
        {{.nativeModifiers = capsLock}, {inserted, inserted, inserted}, {}}, // Qt's own paste
        {{.modifiers = Qt::ControlModifier | Qt::ShiftModifier}, untouched, {}},
        {{.key = Qt::Key_X}, {u"ac"_s, u"ac"_s, u"ac"_s}, u"b"_s},
        {{.key = Qt::Key_C}, untouched, u"b"_s},
    };
    for (const auto &[pressed, expected, clipboard] : cases) {
        reset();
        for (auto *control : controls())
            press(control, pressed);
        EXPECT_EQ(texts(), expected) << pressed.key << ' ' << pressed.nativeModifiers;
        EXPECT_EQ(QGuiApplication::clipboard()->text(),
                  clipboard.isEmpty() ? u"X\nY"_s : clipboard);
    }
}

TEST_F(EditingControlsTest, takeAShortcutWithoutTheFocusUnlessTheyHoldASecret)
{
    auto paste = Press().event();
    m_view->setFocus();
    EXPECT_FALSE(m_secure->performKeyEquivalent(paste));
    EXPECT_TRUE(m_plain->performKeyEquivalent(paste));
    EXPECT_TRUE(m_plain->hasFocus());
    EXPECT_TRUE(m_view->performKeyEquivalent(paste));
    EXPECT_TRUE(m_view->hasFocus());
    EXPECT_EQ(texts(), QStringList({u"abc"_s, u"aX\nYc"_s, u"aX\nYc"_s}));

    auto selectAll = Press{.key = Qt::Key_A}.event();
    EXPECT_FALSE(m_secure->performKeyEquivalent(selectAll));
    EXPECT_TRUE(m_plain->performKeyEquivalent(selectAll));
    EXPECT_EQ(m_plain->selectedText(), m_plain->text());
    EXPECT_TRUE(m_view->performKeyEquivalent(selectAll));
    EXPECT_EQ(m_view->textCursor().selectedText().size(), 5);
    auto other = Press{.key = Qt::Key_Z}.event();
    EXPECT_FALSE(m_plain->performKeyEquivalent(other) || m_view->performKeyEquivalent(other));
}

TEST_F(EditingControlsTest, pasteOnlyPlainText)
{
    auto *image = new QMimeData;
    image->setData(u"image/png"_s, "\x89PNG");
    QGuiApplication::clipboard()->setMimeData(image);
    for (auto *control : controls())
        press(control, {});
    EXPECT_EQ(texts(), QStringList(3, u"abc"_s));

    reset();
    auto *rich = new QMimeData;
    rich->setHtml(u"<b>bold</b>"_s);
    rich->setText(u"*"_s);
    QGuiApplication::clipboard()->setMimeData(rich);
    press(m_view, {});
    EXPECT_EQ(m_view->toPlainText(), u"a*c"_s);
}

TEST_F(EditingControlsTest, leaveReadOnlyTextAlone)
{
    m_plain->setReadOnly(true);
    m_view->setReadOnly(true);
    for (QWidget *control : {static_cast<QWidget *>(m_plain), static_cast<QWidget *>(m_view)}) {
        press(control, {});
        menu(control, u"粘贴"_s);
    }
    menu(m_view, u"剪切"_s);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"X\nY"_s);
    press(m_view, {.key = Qt::Key_X});
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"b"_s);
    EXPECT_EQ(texts(), QStringList(3, u"abc"_s));
}

TEST_F(EditingControlsTest, offerTheirOwnMenus)
{
    const QStringList ofFields{u"粘贴"_s, u"全选"_s};
    EXPECT_EQ(menu(m_secure, u"粘贴"_s), ofFields);
    EXPECT_EQ(menu(m_plain, u"粘贴"_s), ofFields);
    EXPECT_EQ(menu(m_view, u"剪切"_s),
              QStringList({u"剪切"_s, u"复制"_s, u"粘贴"_s, QString(), u"全选"_s}));
    EXPECT_EQ(texts(), QStringList({u"X\nY"_s, u"aX\nYc"_s, u"ac"_s}));
    menu(m_view, u"粘贴"_s);
    menu(m_view, u"全选"_s);
    menu(m_view, u"复制"_s);
    EXPECT_EQ(m_view->toPlainText(), u"abc"_s);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"abc"_s);
    menu(m_plain, u"全选"_s);
    EXPECT_TRUE(m_plain->hasFocus());
    EXPECT_EQ(m_plain->selectedText(), m_plain->text());
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
