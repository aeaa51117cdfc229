// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "WaylandOverlaySurface.h"

#include "WaylandConnection.h"

#include <wayland-client.h>

// The header names an argument as C++ names something else.
#define namespace name_space
#include "wlr-layer-shell-unstable-v1.h"
#undef namespace

namespace {

constexpr int distanceFromEdge = 18;

} // namespace

bool WaylandOverlaySurface::isOffered(const WaylandConnection &connection)
{
    return connection.offers(zwlr_layer_shell_v1_interface.name);
}

WaylandOverlaySurface::WaylandOverlaySurface(WaylandConnection &connection)
    : m_connection(connection)
    , m_compositor(connection.global<wl_compositor>(wl_compositor_interface, 4))
    , m_shell(connection.global<zwlr_layer_shell_v1>(zwlr_layer_shell_v1_interface, 1))
    , m_pictures(connection.global<wl_shm>(wl_shm_interface, 1))
{}

WaylandOverlaySurface::~WaylandOverlaySurface()
{
    hide();
}

void WaylandOverlaySurface::show(const QImage &picture)
{
    const auto lock = m_connection.lock();
    m_picture = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (m_surface == nullptr)
        makeSurface();
    else if (m_isConfigured)
        draw();
    m_connection.flush();
}

void WaylandOverlaySurface::hide()
{
    const auto lock = m_connection.lock();
    if (m_surface == nullptr)
        return;
    zwlr_layer_surface_v1_destroy(std::exchange(m_layer, nullptr));
    wl_surface_destroy(std::exchange(m_surface, nullptr));
    m_isConfigured = false;
    m_connection.flush();
}

void WaylandOverlaySurface::makeSurface()
{
    static constexpr zwlr_layer_surface_v1_listener listener{&configure, &close};
    m_surface = wl_compositor_create_surface(m_compositor);
    m_layer = zwlr_layer_shell_v1_get_layer_surface(
        m_shell, m_surface, nullptr, ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY, "wrenfold-overlay");
    zwlr_layer_surface_v1_add_listener(m_layer, &listener, this);
    const auto size = m_picture.deviceIndependentSize().toSize();
    zwlr_layer_surface_v1_set_size(
        m_layer, static_cast<quint32>(size.width()), static_cast<quint32>(size.height()));
    zwlr_layer_surface_v1_set_anchor(m_layer, ZWLR_LAYER_SURFACE_V1_ANCHOR_BOTTOM);
    zwlr_layer_surface_v1_set_margin(m_layer, 0, 0, distanceFromEdge, 0);
    letInputThrough();
    // The first picture may come only after the compositor's answer.
    wl_surface_commit(m_surface);
}

void WaylandOverlaySurface::letInputThrough()
{
    auto *const nothing = wl_compositor_create_region(m_compositor);
    wl_surface_set_input_region(m_surface, nothing);
    wl_region_destroy(nothing);
}

void WaylandOverlaySurface::draw()
{
    auto *const buffer = m_pictures.place(m_picture);
    if (buffer == nullptr)
        return;
    wl_surface_set_buffer_scale(m_surface, qRound(m_picture.devicePixelRatio()));
    wl_surface_attach(m_surface, buffer, 0, 0);
    wl_surface_damage_buffer(m_surface, 0, 0, m_picture.width(), m_picture.height());
    wl_surface_commit(m_surface);
}

void WaylandOverlaySurface::configure(
    void *self, zwlr_layer_surface_v1 *layer, quint32 serial, quint32, quint32)
{
    auto &overlay = *static_cast<WaylandOverlaySurface *>(self);
    zwlr_layer_surface_v1_ack_configure(layer, serial);
    overlay.m_isConfigured = true;
    overlay.draw();
    overlay.m_connection.flush();
}

// Its monitor is gone: the next picture finds another.
void WaylandOverlaySurface::close(void *self, zwlr_layer_surface_v1 *)
{
    static_cast<WaylandOverlaySurface *>(self)->hide();
}
