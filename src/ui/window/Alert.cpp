// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Alert.h"

#include "AppRuntime.h"

#include <QApplication>
#include <QMessageBox>

namespace {

// Null when the user has dismissed it, or never seen it.
QMessageBox *openAlert(const QString &text)
{
    for (auto *window : QApplication::topLevelWidgets())
        if (auto *box = qobject_cast<QMessageBox *>(window))
            if (box->isVisible() && box->informativeText() == text)
                return box;
    return nullptr;
}

QMessageBox *makeAlert(const QString &text)
{
    auto *box = new QMessageBox(QMessageBox::Warning, AppRuntime::appName, AppRuntime::appName);
    box->setInformativeText(text);
    box->addButton(QMessageBox::Ok);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::ApplicationModal);
    box->setWindowFlag(Qt::WindowStaysOnTopHint);
    return box;
}

} // namespace

void showAlert(const QString &text, std::function<void()> dismissed)
{
    auto *box = openAlert(text);
    if (!box)
        box = makeAlert(text);
    QObject::connect(box, &QMessageBox::finished, box, std::move(dismissed));
    box->show();
    box->raise();
    box->activateWindow();
}
