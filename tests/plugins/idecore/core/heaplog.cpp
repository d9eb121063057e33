// SPDX-FileCopyrightText: 2026 KelmoWare
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "heaplog.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iterator>
#include <new>

namespace {

/// Takes no memory while it grows, which would come back here.
class Addresses final
{
public:
    void clear() { m_size = 0; }
    void append(void *address) // not const: only the address counts, nothing is read there
    {
        if (m_size == m_places.size())
            qFatal("the heap log is full");
        m_places[m_size++] = address;
    }
    [[nodiscard]] int first(const void *address) const
    {
        const auto end = std::next(m_places.cbegin(), static_cast<std::ptrdiff_t>(m_size));
        const auto found = std::find(m_places.cbegin(), end, address);
        return found == end ? -1 : static_cast<int>(std::distance(m_places.cbegin(), found));
    }
    [[nodiscard]] int last(const void *address) const
    {
        for (std::size_t i = m_size; i > 0; --i) {
            if (m_places[i - 1] == address)
                return static_cast<int>(i - 1);
        }
        return -1;
    }

private:
    std::array<const void *, 1 << 20> m_places{};
    std::size_t m_size = 0;
};

Addresses s_made;
Addresses s_deleted;
thread_local bool s_recording = false;

void *take(std::size_t size)
{
    void *const memory = std::malloc(size);
    if (s_recording)
        s_made.append(memory);
    return memory;
}

void give(void *memory)
{
    if (s_recording && memory)
        s_deleted.append(memory);
    std::free(memory);
}

} // namespace

void *operator new(std::size_t size)
{
    if (void *const memory = take(size))
        return memory;
    throw std::bad_alloc();
}

void *operator new(std::size_t size, const std::nothrow_t &) noexcept
{
    return take(size);
}

void *operator new[](std::size_t size)
{
    if (void *const memory = take(size))
        return memory;
    throw std::bad_alloc();
}

void *operator new[](std::size_t size, const std::nothrow_t &) noexcept
{
    return take(size);
}

void operator delete(void *memory) noexcept
{
    give(memory);
}

void operator delete(void *memory, std::size_t) noexcept
{
    give(memory);
}

void operator delete[](void *memory) noexcept
{
    give(memory);
}

void operator delete[](void *memory, std::size_t) noexcept
{
    give(memory);
}

HeapLog::HeapLog()
{
    s_made.clear();
    s_deleted.clear();
    s_recording = true;
}

HeapLog::~HeapLog()
{
    s_recording = false;
}

int HeapLog::made(const void *object)
{
    return s_made.last(object);
}

int HeapLog::deleted(const void *object)
{
    return s_deleted.first(object);
}
