// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include "OverlaySurface.h"
#include "WaylandPictures.h"

struct wl_compositor;
struct wl_surface;
struct zwlr_layer_shell_v1;
struct zwlr_layer_surface_v1;
class WaylandConnection;

// A surface of the layer above all windows. The compositor chooses the monitor: the one that is in
// use.
class WaylandOverlaySurface final : public OverlaySurface
{
public:
    // Whether the compositor has layers.
    [[nodiscard]] static bool isOffered(const WaylandConnection &connection);

    explicit WaylandOverlaySurface(WaylandConnection &connection);
    ~WaylandOverlaySurface() override;

    void show(const QImage &picture) override;
    void hide() override;

private:
    static void
    configure(void *self, zwlr_layer_surface_v1 *, quint32 serial, quint32 width, quint32 height);
    static void close(void *self, zwlr_layer_surface_v1 *);

    void makeSurface();
    void letInputThrough();
    void draw();

    WaylandConnection &m_connection;
    wl_compositor *m_compositor = nullptr;
    zwlr_layer_shell_v1 *m_shell = nullptr;
    WaylandPictures m_pictures;
    // While something is shown.
    wl_surface *m_surface = nullptr;
    zwlr_layer_surface_v1 *m_layer = nullptr;
    QImage m_picture;
    bool m_isConfigured = false;
};
