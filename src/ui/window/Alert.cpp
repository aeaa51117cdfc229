// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "Alert.h"

#include "AppRuntime.h"

#include <QMessageBox>

void showAlert(const QString &text, std::function<void()> dismissed)
{
    auto *box = new QMessageBox(QMessageBox::Warning, AppRuntime::appName, AppRuntime::appName);
    box->setInformativeText(text);
    box->addButton(QMessageBox::Ok);
    box->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(box, &QMessageBox::finished, box, std::move(dismissed));
    box->open();
    box->raise();
    box->activateWindow();
}
