// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "NetworkStream.h"

#include "TcpPeer.h"

#include <boost/asio/ip/address.hpp>
#include <boost/asio/write.hpp>

namespace asio = boost::asio;

namespace {

// The name is asked for and verified; an address is only verified.
bool expectHost(SSL *ssl, const std::string &host)
{
    NetworkStream::ErrorCode noAddress;
    asio::ip::make_address(host, noAddress);
    if (!noAddress)
        return X509_VERIFY_PARAM_set1_ip_asc(SSL_get0_param(ssl), host.c_str()) == 1;
    std::string name = host; // the macro takes what it does not change as changeable
    return SSL_set1_host(ssl, name.c_str()) == 1
        && SSL_ctrl(ssl, SSL_CTRL_SET_TLSEXT_HOSTNAME, TLSEXT_NAMETYPE_host_name, name.data()) == 1;
}

} // namespace

NetworkStream::NetworkStream(Socket socket)
    : m_socket(std::move(socket))
{
    TcpPeer::watch(m_socket.native_handle());
}

void NetworkStream::encrypt(asio::ssl::context &tls,
                            const std::string &host,
                            const std::function<void(ErrorCode)> &done)
{
    m_tls.emplace(m_socket, tls);
    if (expectHost(m_tls->native_handle(), host))
        m_tls->async_handshake(asio::ssl::stream_base::client, done);
    else
        done(asio::error::invalid_argument);
}

std::string NetworkStream::certificateError()
{
    const auto result = m_tls ? SSL_get_verify_result(m_tls->native_handle()) : X509_V_OK;
    return result == X509_V_OK ? std::string() : X509_verify_cert_error_string(result);
}

void NetworkStream::read(asio::mutable_buffer buffer, const Done &done)
{
    if (m_tls)
        m_tls->async_read_some(buffer, done);
    else
        m_socket.async_read_some(buffer, done);
}

void NetworkStream::write(asio::const_buffer buffer, const Done &done)
{
    if (m_tls)
        asio::async_write(*m_tls, buffer, done);
    else
        asio::async_write(m_socket, buffer, done);
}

void NetworkStream::close()
{
    ErrorCode ignored; // it is closed either way
    m_socket.close(ignored);
}
