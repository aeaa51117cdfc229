// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// How the maker of this build can be reached. What is empty is not shown.
struct ContactDetails
{
    QString name{};
    QString channel{};
    QString messagingID{};
    QString email{};

    bool operator==(const ContactDetails &) const = default;
};

// What the build was configured with (WRENFOLD_CONTACT_NAME and its like); empty by default.
[[nodiscard]] ContactDetails buildContactDetails();
