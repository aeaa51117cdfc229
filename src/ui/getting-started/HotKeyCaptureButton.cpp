// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "HotKeyCaptureButton.h"

#include "HotKeyFormatter.h"
#include "HotKeyWords.h"
#include "InterfaceFont.h"
#include "KeyCodes.h"
#include "VirtualKey.h"

#include <QApplication>
#include <QKeyEvent>
#include <QStyleOptionButton>
#include <QStylePainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int titleMargin = 8;
// Of a title that is too wide for one line: two lines fit then.
constexpr int longTitleSize = 13;

// The stored code of the event's key; absent when it has none.
std::optional<quint32> keyCodeOf(const QKeyEvent &event)
{
    return KeyCodes::virtualKeyCode(event.nativeScanCode() - KeyCodes::displayOffset);
}

// Escape by its place on the keyboard and, where another key was made Escape, by its meaning.
bool isEscape(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Escape || keyCodeOf(event) == VirtualKey::escape;
}

bool isModifier(const QKeyEvent &event)
{
    switch (event.key()) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Meta:
    case Qt::Key_Alt:
    case Qt::Key_CapsLock:
    case Qt::Key_AltGr:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_Hyper_L:
    case Qt::Key_Hyper_R:
    case Qt::Key_Mode_switch:
        return true;
    default:
        return KeyCodes::modifierFlag(keyCodeOf(event).value_or(0)) != 0;
    }
}

// The modifiers that the display itself sees: what a registered combination is compared with.
quint32 flagsOf(Qt::KeyboardModifiers modifiers)
{
    quint32 flags = 0;
    for (const auto &[modifier, flag] : {std::pair(Qt::ShiftModifier, ModifierFlag::shift),
                                         {Qt::ControlModifier, ModifierFlag::control},
                                         {Qt::AltModifier, ModifierFlag::option},
                                         {Qt::MetaModifier, ModifierFlag::command}})
        if (modifiers.testFlag(modifier))
            flags |= flag;
    return flags;
}

} // namespace

HotKeyCaptureButton::HotKeyCaptureButton(KeyCharacters keyCharacters, QWidget *parent)
    : QPushButton(parent)
    , m_keyCharacters(std::move(keyCharacters))
{
    showWords();
    connect(this, &QPushButton::clicked, this, &HotKeyCaptureButton::beginCapture);
}

void HotKeyCaptureButton::setHotKey(const HotKeyConfig &hotKey)
{
    m_currentDisplayName = hotKey.displayName;
    showWords();
    if (!m_isCapturing)
        showTitle(m_currentDisplayName);
}

void HotKeyCaptureButton::beginCapture()
{
    m_isCapturing = true;
    m_pendingModifierHotKey.reset();
    showTitle(u"按下新的快捷键"_s);
    setFocus();
    reportCapturing();
}

bool HotKeyCaptureButton::event(QEvent *event)
{
    const auto *const key = dynamic_cast<QKeyEvent *>(event);
    const bool isOurs = key != nullptr
        && ((event->type() == QEvent::ShortcutOverride && (m_isCapturing || isEscape(*key)))
            || (event->type() == QEvent::KeyPress && key->isAutoRepeat()
                && (m_isCapturing || key->nativeScanCode() == m_capturedKey)));
    if (isOurs) {
        event->accept();
        return true;
    }
    const bool isHandled = QPushButton::event(event);
    switch (event->type()) {
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::WindowActivate:
    case QEvent::WindowDeactivate:
        reportCapturing();
        break;
    default:
        break;
    }
    return isHandled;
}

// While capturing, Tab is a key like any other.
bool HotKeyCaptureButton::focusNextPrevChild(bool next)
{
    return !m_isCapturing && QPushButton::focusNextPrevChild(next);
}

// The releases of keys that are down go elsewhere now: a modifier key held to switch windows was
// not pressed alone.
void HotKeyCaptureButton::focusOutEvent(QFocusEvent *event)
{
    m_modifiersDown.clear();
    if (std::exchange(m_pendingModifierHotKey, std::nullopt))
        showTitle(u"按下新的快捷键"_s);
    QPushButton::focusOutEvent(event);
}

void HotKeyCaptureButton::keyPressEvent(QKeyEvent *event)
{
    m_capturedKey = 0;
    const auto keyCode = keyCodeOf(*event).value_or(0);
    if (isModifier(*event))
        m_modifiersDown[keyCode] = event->key();
    if (isEscape(*event))
        endCapture();
    else if (m_isCapturing && isModifier(*event))
        handleFlagsChanged(keyCode);
    else if (m_isCapturing)
        handleKeyDown(*event);
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QPushButton::keyPressEvent(event);
}

void HotKeyCaptureButton::keyReleaseEvent(QKeyEvent *event)
{
    const auto keyCode = keyCodeOf(*event).value_or(0);
    m_modifiersDown.erase(keyCode);
    if (m_isCapturing && isModifier(*event))
        handleFlagsChanged(keyCode);
    else
        QPushButton::keyReleaseEvent(event);
}

void HotKeyCaptureButton::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        beginCapture();
    else
        QPushButton::mousePressEvent(event);
}

void HotKeyCaptureButton::paintEvent(QPaintEvent *event)
{
    const auto room = contentsRect().adjusted(titleMargin, 0, -titleMargin, 0);
    if (fontMetrics().horizontalAdvance(accessibleName()) <= room.width()) {
        QPushButton::paintEvent(event);
        return;
    }
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    QStylePainter painter(this);
    painter.drawControl(QStyle::CE_PushButton, option);
    painter.setFont(interfaceFont(longTitleSize));
    painter.drawText(room, Qt::AlignCenter | Qt::TextWordWrap, accessibleName());
}

void HotKeyCaptureButton::handleKeyDown(const QKeyEvent &event)
{
    const auto keyCode = keyCodeOf(event);
    // With AltGr the key types a character of its own: no combination that can be registered.
    const auto hotKey = keyCode && !isLevelShiftDown()
        ? HotKeyFormatter::config({*keyCode, flagsOf(event.modifiers()), m_keyCharacters(*keyCode)})
        : std::nullopt;
    if (!hotKey) {
        QApplication::beep();
        return;
    }
    m_capturedKey = event.nativeScanCode();
    finishCapture(*hotKey);
}

void HotKeyCaptureButton::handleFlagsChanged(quint32 keyCode)
{
    const auto flags = modifierFlags();
    if (m_pendingModifierHotKey
        && !HotKeyFormatter::carbonValueContains(flags, m_pendingModifierHotKey->modifiers)) {
        finishCapture(HotKeyConfig(*m_pendingModifierHotKey));
        return;
    }
    const auto hotKey = HotKeyFormatter::configFromFlagsChanged({keyCode, flags, {}});
    if (!hotKey || !HotKeyFormatter::carbonValueContains(flags, hotKey->modifiers))
        return;
    m_pendingModifierHotKey = hotKey;
    showTitle(u"继续按字母/空格，或松开设为 "_s + hotKey->displayName);
}

void HotKeyCaptureButton::endCapture()
{
    m_isCapturing = false;
    m_pendingModifierHotKey.reset();
    showTitle(m_currentDisplayName);
    reportCapturing();
}

void HotKeyCaptureButton::finishCapture(const HotKeyConfig &hotKey)
{
    m_currentDisplayName = hotKey.displayName;
    showWords();
    endCapture();
    onCapture(hotKey);
}

void HotKeyCaptureButton::showWords()
{
    const auto words = hotKeyInWords(m_currentDisplayName);
    setToolTip(words);
    setAccessibleDescription(u"快捷键 "_s + words);
}

void HotKeyCaptureButton::showTitle(const QString &title)
{
    if (title == accessibleName())
        return;
    setAccessibleName(title);
    // The key "&" is no mnemonic.
    setText(QString(title).replace(u'&', "&&"_L1));
}

void HotKeyCaptureButton::reportCapturing()
{
    const bool isActive = m_isCapturing && isVisible() && isActiveWindow();
    if (std::exchange(m_isReported, isActive) != isActive)
        onCapturingChange(isActive);
}

bool HotKeyCaptureButton::isLevelShiftDown() const
{
    return std::ranges::any_of(m_modifiersDown, [](const auto &entry) {
        return entry.second == Qt::Key_AltGr || entry.second == Qt::Key_Mode_switch;
    });
}

// By the keys themselves, which tell left from right; some layouts report the right Alt as another
// modifier.
quint32 HotKeyCaptureButton::modifierFlags() const
{
    quint32 flags = 0;
    for (const auto &[keyCode, key] : m_modifiersDown)
        flags |= KeyCodes::modifierFlag(keyCode);
    return flags;
}
