// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>

#include <memory>
#include <vector>

struct wl_buffer;
struct wl_shm;

// Hands pictures of one size to the compositor. While it reads one, the next goes to another place.
// Under the connection's lock.
class WaylandPictures final
{
public:
    explicit WaylandPictures(wl_shm *memory);
    ~WaylandPictures();
    WaylandPictures(const WaylandPictures &) = delete;
    WaylandPictures &operator=(const WaylandPictures &) = delete;

    // The picture as a surface can be given it, at once; null when there is no memory.
    [[nodiscard]] wl_buffer *place(const QImage &picture);

private:
    struct Place;

    [[nodiscard]] Place *freePlace(const QImage &picture);
    static void release(void *place, wl_buffer *);

    wl_shm *m_memory;
    std::vector<std::unique_ptr<Place>> m_places;
};
