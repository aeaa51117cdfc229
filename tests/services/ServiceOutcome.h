// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "HttpError.h"
#include "JsonCoding.h"
#include "Outcome.h"
#include "ScriptedHttpServer.h"

// As outcome(), with the other errors of a service: a request's kind of failure, "json", or
// "other: " and the message.
template<typename Operation>
std::string serviceOutcome(const Operation &operation)
{
    static constexpr std::array kinds{
        "cancelled", "timedOut", "network", "tls", "closed", "invalidRequest"};
    try {
        return outcome(operation);
    } catch (const HttpError &error) {
        return kinds.at(static_cast<size_t>(error.kind()));
    } catch (const JsonError &) {
        return "json";
    } catch (const LocalizedError &error) {
        return "other: " + std::string(error.what());
    }
}

// What a call came to that was answered like this, and the requests it made. The call finds the
// server at `address`.
template<typename Operation>
std::pair<std::string, std::vector<RecordedRequest>>
answered(const ScriptedAnswer &answer, QString &address, const Operation &call)
{
    const ScriptedHttpServer server(answer);
    address = server.url(QStringLiteral("/base")).toString();
    auto result = serviceOutcome(call);
    return {std::move(result), server.requests()};
}
