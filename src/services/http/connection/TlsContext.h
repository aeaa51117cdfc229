// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <boost/asio/ssl/context.hpp>
#include <optional>

// What all TLS connections of a session share: they verify certificates against the system's
// authorities, of which only the one that is asked for is read.
class TlsContext final
{
public:
    // Made at the first call. Throws boost::system::system_error.
    [[nodiscard]] boost::asio::ssl::context &get();

private:
    std::optional<boost::asio::ssl::context> m_context;
};
