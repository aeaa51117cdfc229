// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "RegularWindow.h"

#include "AccessibleRole.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QScreen>
#include <QStyle>
#include <QWindow>

RegularWindow::RegularWindow(const QString &title)
    : QWidget(nullptr,
              Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint
                  | Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint)
{
    setWindowTitle(title);
    setAccessibleRole(*this, QAccessible::Window, title);
}

QSize RegularWindow::ownSize() const
{
    return isMaximized() ? normalGeometry().size() : size();
}

void RegularWindow::center()
{
    const auto available = screen()->availableGeometry();
    move(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, frameGeometry().size(), available)
             .topLeft());
}

void RegularWindow::bringToFront()
{
    // A desktop that shows itself can have unmapped the window without telling that it is
    // minimised.
    if (isVisible() && windowHandle() && !windowHandle()->isExposed())
        hide();
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void RegularWindow::keyPressEvent(QKeyEvent *event)
{
    auto *button = qobject_cast<QAbstractButton *>(focusWidget());
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool isControlW = event->key() == Qt::Key_W && event->modifiers() == Qt::ControlModifier;
    if (isReturn && button && !event->isAutoRepeat())
        button->click();
    else if (event->key() == Qt::Key_Escape || isControlW)
        close();
    else
        QWidget::keyPressEvent(event);
}
