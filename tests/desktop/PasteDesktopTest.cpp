// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "AutoPaster.h"
#include "BackgroundTasks.h"
#include "Desktop.h"
#include "EventLoopMainQueue.h"
#include "ForeignWindow.h"
#include "SelectionOwner.h"
#include "TemporaryHome.h"
#include "WaitUntil.h"
#include "X11Clipboard.h"
#include "X11FocusReturn.h"
#include "X11InputConnection.h"
#include "X11SyntheticKeyboard.h"

#include <QPlainTextEdit>
#include <QTimer>

#include <future>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <xcb/xcb.h>

using namespace Key;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QByteArray shortText =
    "你好，世界 😀👩‍👩‍👧\n\tsecond “line”\n\nlast\n";

const QByteArray longText = shortText.repeated(1700); // over 100 KB

struct PasteCase
{
    const char *name;
    const char *layout = "us";
    std::vector<quint8> held = {};
    std::vector<quint8> locks = {}; // tapped before and after
    QByteArray text = shortText;
    const char *postingLayout = nullptr; // of the device for posted keys alone
};

const PasteCase rows[] = {
    {"plain"},
    {"long", "us", {}, {}, longText},
    {"Dvorak", "dvorak"},
    {"French", "fr"},
    {"Dvorak for posted keys alone", "us", {}, {}, shortText, "dvorak"},
    {"French, AltGr held", "fr", {rightAlt}},
    {"Russian", "ru"},
    {"Russian as second layout", "us,ru -option grp:sclk_toggle", {}, {scrollLock}},
    {"Control and Caps swapped", "us -option ctrl:swapcaps"},
    {"locks on", "us", {}, {capsLock, numLock, scrollLock}},
    {"Shift held", "us", {leftShift}},
    {"Super held", "us", {leftSuper}},
    {"left Alt held", "us", {leftAlt}},
    {"right Alt held", "us", {rightAlt}},
    {"Controls held", "us", {leftControl, rightControl}},
    {"all held", "us", {rightShift, rightSuper, leftAlt, rightControl}},
};

class PasteDesktopTest : public testing::Test
{
protected:
    void open(const QString &program, const QStringList &arguments)
    {
        m_home.write(u"text.txt"_s, "");
        const auto file = m_home.path(u"text.txt"_s);
        m_editor = m_desktop.start(program, arguments + QStringList{file}, program);
    }

    // Pastes as the application does, off the main thread, all texts at once, and waits for what
    // becomes of them: how many were delivered.
    int paste(const QByteArrayList &texts)
    {
        int delivered = 0;
        qsizetype ended = 0;
        BackgroundTasks tasks;
        for (const auto &text : texts)
            tasks.start([&] {
                EXPECT_NO_THROW(AutoPaster(PasteConfig{}, m_pasting)
                                    .paste(QString::fromUtf8(text), [&](auto fetchedAfter) {
                                        delivered += fetchedAfter ? 1 : 0;
                                        ++ended;
                                    }));
            });
        EXPECT_TRUE(waitUntil([&] { return ended == texts.size(); }));
        return delivered;
    }

    // Whether the editor holds exactly this text, when asked to save it on the US layout.
    bool holds(const QByteArray &text)
    {
        const auto isSaved = [&] { return m_home.read(u"text.txt"_s) == text; };
        if (m_isTerminal)
            return waitUntil(isSaved);
        for (int i = 0; i < 50; ++i) {
            m_desktop.tap({leftControl, s});
            if (waitUntil(isSaved, std::chrono::milliseconds(200)))
                return true;
        }
        return false;
    }

    bool isNoKeyDown()
    {
        return waitUntil([&] { return m_desktop.keysDown().empty(); }, std::chrono::seconds(1));
    }

    // Pastes the row's text after what the editor holds, and once more with no key held.
    void pasteRow(const PasteCase &row)
    {
        m_desktop.setLayout(QString::fromLatin1(row.layout));
        if (row.postingLayout != nullptr)
            m_desktop.setPostingLayout(QString::fromLatin1(row.postingLayout));
        for (const auto key : row.locks)
            m_desktop.tap({key});
        for (const auto key : row.held)
            m_desktop.press(key);
        EXPECT_EQ(paste({row.text}), 1);
        EXPECT_THAT(m_desktop.keysDown(), testing::UnorderedElementsAreArray(row.held));
        for (const auto key : row.held)
            m_desktop.release(key);
        EXPECT_TRUE(isNoKeyDown());
        m_desktop.setLayout(u"us"_s);
        m_expected += row.text;
        ASSERT_TRUE(holds(m_expected)) << m_home.read(u"text.txt"_s).right(500).toStdString();
        // Something is copied elsewhere in between.
        for (const auto *selection : {"CLIPBOARD", "PRIMARY"})
            ownSelection(m_other, selection);
        EXPECT_EQ(paste({shortText}), 1);
        m_expected += shortText;
        EXPECT_TRUE(isNoKeyDown());
        ASSERT_TRUE(holds(m_expected));
        for (const auto key : row.locks)
            m_desktop.tap({key});
    }

    void pasteEverything()
    {
        for (const auto &row : rows) {
            SCOPED_TRACE(row.name);
            ASSERT_NO_FATAL_FAILURE(pasteRow(row));
        }
    }

    TemporaryHome m_home;
    Desktop m_desktop;
    EventLoopMainQueue m_queue;
    X11InputConnection m_input;
    X11SyntheticKeyboard m_keyboard{m_input};
    X11Clipboard m_clipboard;
    PasteTurns m_turns;
    const AutoPaster::Desktop m_pasting{m_keyboard, m_clipboard, m_turns, m_queue};
    const X11Connection m_other{[](const void *) {}};
    bool m_isTerminal = false;
    std::unique_ptr<BackgroundProcess> m_editor;
    QByteArray m_expected;
};

TEST_F(PasteDesktopTest, mousepadGetsTextOnEveryLayoutWhateverIsHeld)
{
    open(u"mousepad"_s, {u"--disable-server"_s});
    pasteEverything();
    // Two at once, while a clipboard manager fetches everything too.
    BackgroundProcess manager;
    manager.start(u"xfce4-clipman"_s, QStringList());
    auto *const server = m_other.get();
    const auto selection = X11Selections::atom(server, "CLIPBOARD_MANAGER");
    ASSERT_TRUE(waitUntil([&] { return X11Selections::owner(server, selection) != 0; }));
    EXPECT_EQ(paste({"A\n", "B\n"}), 2);
    EXPECT_TRUE(holds(m_expected + "A\nB\n") || holds(m_expected + "B\nA\n"))
        << m_home.read(u"text.txt"_s).right(50).toStdString();
    // What has the focus takes no paste: only the manager fetches.
    const ForeignWindow deaf("deaf");
    EXPECT_EQ(paste({"C\n"}), 0);
}

TEST_F(PasteDesktopTest, aWindowOfOursGetsTextAndGivesTheFocusBack)
{
    X11FocusReturn focusReturn;
    const auto returnsFocus = [&focusReturn] {
        auto answer = std::async([&] { return focusReturn.returnFocus(); });
        EXPECT_TRUE(waitUntil([&] { return answer.wait_for(0s) == std::future_status::ready; }));
        return answer.get();
    };
    QPlainTextEdit editor;
    // By what the server says, of which Qt hears later.
    const auto isActive = [this] {
        return waitUntil([this] { return m_desktop.focusedClass().contains(u"paste_desktop"_s); },
                         1s);
    };
    const auto activate = [&] {
        editor.show();
        EXPECT_TRUE(waitUntil([&] {
            editor.activateWindow();
            return isActive();
        }));
    };
    activate();
    EXPECT_EQ(paste({shortText}), 1);
    EXPECT_EQ(editor.toPlainText(), QString::fromUtf8(shortText));
    EXPECT_FALSE(returnsFocus());
    open(u"mousepad"_s, {u"--disable-server"_s});
    EXPECT_TRUE(returnsFocus());
    activate();
    EXPECT_TRUE(returnsFocus());
    EXPECT_EQ(paste({shortText}), 1);
    EXPECT_TRUE(holds(shortText));
    m_editor.reset();
    activate();
    EXPECT_FALSE(returnsFocus());
}

TEST_F(PasteDesktopTest, featherpadGetsTextOnEveryLayoutWhateverIsHeld)
{
    open(u"featherpad"_s, {u"--standalone"_s});
    pasteEverything();
}

TEST_F(PasteDesktopTest, xtermGetsTextOnEveryLayoutWhateverIsHeld)
{
    // Writes what is typed to the file as it comes, without the line editing of a terminal.
    m_isTerminal = true;
    open(u"xterm"_s, {u"-e"_s, u"sh"_s, u"-c"_s, u"stty -icanon -echo -isig; cat > \"$0\""_s});
    pasteEverything();
}

TEST_F(PasteDesktopTest, nothingIsTypedWhileAnotherHoldsTheKeyboard)
{
    ForeignWindow window("editor");
    auto *const server = m_other.get();
    const auto hold = [&] {
        xcb_grab_keyboard(server, 0, m_other.root(), XCB_CURRENT_TIME, 1, 1);
        static_cast<void>(X11Selections::owner(server, XCB_ATOM_PRIMARY)); // it is done now
    };
    EXPECT_FALSE(m_keyboard.isHeldByAnother());
    EXPECT_EQ(window.focusChanges, 0);
    hold();
    EXPECT_TRUE(m_keyboard.isHeldByAnother());
    // An open menu, which closes soon.
    QTimer::singleShot(500, [&] {
        EXPECT_TRUE(window.presses.empty());
        xcb_ungrab_keyboard(server, XCB_CURRENT_TIME);
        xcb_flush(server);
    });
    EXPECT_EQ(paste({"text"}), 0);
    EXPECT_THAT(window.presses, testing::ElementsAre(leftControl, v));
}

TEST_F(PasteDesktopTest, gvimGetsTextInBothOfItsModes)
{
    m_isTerminal = true; // saved by a command of its own
    open(u"gvim"_s, {u"-f"_s, u"-c"_s, u"set autowriteall"_s});
    const auto save = [this] {
        m_desktop.tap({escape});
        m_desktop.tap({leftShift, 47}); // ":"
        m_desktop.tap({25}); // "w"
        m_desktop.tap({36}); // Return
    };
    EXPECT_EQ(paste({"normal "}), 1);
    m_desktop.tap({leftShift, a}); // appends
    EXPECT_EQ(paste({"insert"}), 1);
    save();
    EXPECT_TRUE(holds("normal insert\n")) << m_home.read(u"text.txt"_s).toStdString();
}

TEST_F(PasteDesktopTest, everyApplicationIsToldByItsOwnChord)
{
    const char *const toldByShiftInsert[] = {"Alacritty",
                                             "com.mitchellh.ghostty",
                                             "cool-retro-term",
                                             "deepin-terminal",
                                             "Emacs",
                                             "Gnome-terminal",
                                             "Guake",
                                             "Gvim",
                                             "Hyper",
                                             "kgx",
                                             "kitty",
                                             "konsole",
                                             "Lxterminal",
                                             "Mate-terminal",
                                             "ptyxis",
                                             "qterminal",
                                             "rxvt",
                                             "st-256color",
                                             "st",
                                             "tabby",
                                             "Terminator",
                                             "terminology",
                                             "Tilda",
                                             "Tilix",
                                             "URxvt",
                                             "UXTerm",
                                             "org.wezfurlong.wezterm",
                                             "Xfce4-terminal",
                                             "XTerm",
                                             "yakuake",
                                             "org.gnome.Ptyxis",
                                             "org.gnome.Console",
                                             "ghostty",
                                             "wezterm"};
    for (const auto *const name : toldByShiftInsert) {
        const ForeignWindow window(name);
        EXPECT_EQ(m_keyboard.pasteChordOfFocusedWindow(), PasteChord::ShiftInsert) << name;
    }
    const ForeignWindow window("Xtermination");
    EXPECT_EQ(m_keyboard.pasteChordOfFocusedWindow(), PasteChord::ControlV);
}

} // namespace
