// SPDX-FileCopyrightText: 2026 The Wrenfold authors
// SPDX-License-Identifier: MIT
#include "WaylandPictures.h"

#include <algorithm>
#include <cstring>

#include <sys/mman.h>
#include <unistd.h>
#include <wayland-client.h>

struct WaylandPictures::Place
{
    Place(wl_shm *shared, const QImage &picture)
        : size(picture.size())
        , bytes(static_cast<size_t>(picture.sizeInBytes()))
    {
        const int file = ::memfd_create("picture", MFD_CLOEXEC);
        if (::ftruncate(file, static_cast<off_t>(bytes)) == 0)
            memory = ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
        if (memory != MAP_FAILED) {
            auto *const pool = wl_shm_create_pool(shared, file, static_cast<int>(bytes));
            buffer = wl_shm_pool_create_buffer(pool,
                                               0,
                                               picture.width(),
                                               picture.height(),
                                               static_cast<int>(picture.bytesPerLine()),
                                               WL_SHM_FORMAT_ARGB8888);
            wl_shm_pool_destroy(pool);
        }
        ::close(file);
    }
    ~Place()
    {
        if (memory == MAP_FAILED)
            return;
        wl_buffer_destroy(buffer);
        ::munmap(memory, bytes);
    }
    Place(const Place &) = delete;
    Place &operator=(const Place &) = delete;

    QSize size;
    size_t bytes;
    void *memory = MAP_FAILED;
    wl_buffer *buffer = nullptr;
    bool isBusy = false;
};

WaylandPictures::WaylandPictures(wl_shm *memory)
    : m_memory(memory)
{}

WaylandPictures::~WaylandPictures() = default;

wl_buffer *WaylandPictures::place(const QImage &picture)
{
    auto *const place = freePlace(picture);
    if (place == nullptr)
        return nullptr;
    std::memcpy(place->memory, picture.constBits(), place->bytes);
    place->isBusy = true;
    return place->buffer;
}

WaylandPictures::Place *WaylandPictures::freePlace(const QImage &picture)
{
    static constexpr wl_buffer_listener listener{&release};
    std::erase_if(m_places, [&](const auto &place) {
        return !place->isBusy && place->size != picture.size();
    });
    const auto free = std::ranges::find(m_places, false, &Place::isBusy);
    if (free != m_places.end())
        return free->get();
    auto made = std::make_unique<Place>(m_memory, picture);
    if (made->buffer == nullptr)
        return nullptr;
    wl_buffer_add_listener(made->buffer, &listener, made.get());
    return m_places.emplace_back(std::move(made)).get();
}

void WaylandPictures::release(void *place, wl_buffer *)
{
    static_cast<Place *>(place)->isBusy = false;
}
