// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HttpError.h"
#include "HushwireError.h"
#include "JsonCoding.h"

#include <QString>

#include <array>
#include <ostream>

// What an operation came to, in a form that tables can state: "= text" for a result, else the kind
// of the error and, where the message is ours to the character, the message.
template<typename Operation>
QString outcome(const Operation &operation)
{
    using namespace Qt::StringLiterals;
    static constexpr std::array httpKinds{
        "cancelled"_L1, "timedOut"_L1, "network"_L1, "tls"_L1, "closed"_L1, "invalidRequest"_L1};
    static constexpr std::array ourKinds{"configMissing: "_L1,
                                         "permissionMissing: "_L1,
                                         "recordingFailed: "_L1,
                                         "serviceFailed: "_L1,
                                         "responseFailed: "_L1,
                                         "pasteFailed: "_L1};
    try {
        return u"= "_s + operation();
    } catch (const HttpError &error) {
        return httpKinds.at(static_cast<size_t>(error.kind()));
    } catch (const HushwireError &error) {
        return ourKinds.at(static_cast<size_t>(error.kind())) + error.localizedDescription();
    } catch (const JsonError &) {
        return u"json"_s;
    } catch (const LocalizedError &error) {
        return u"other: "_s + error.localizedDescription();
    }
}

// Readable failures of comparisons.
inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << text.toStdString();
}
