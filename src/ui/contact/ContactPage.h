// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ContactDetails.h"

#include <QWidget>

struct MainWindowCallbacks;

// The page that says how to reach the maker and where the log is.
class ContactPage final : public QWidget
{
public:
    explicit ContactPage(const MainWindowCallbacks &callbacks,
                         const ContactDetails &details = buildContactDetails());
};
