#pragma once

#include <unistd.h>
#include <utility>

/// An open file that came over the socket; closed with the object.
class HandedFile
{
public:
    HandedFile() = default;
    explicit HandedFile(int handle) : file(handle) {}
    HandedFile(HandedFile&& other) noexcept : file(std::exchange(other.file, -1)) {}
    HandedFile& operator=(HandedFile&& other) noexcept
    {
        std::swap(file, other.file);
        return *this;
    }
    ~HandedFile()
    {
        if (file >= 0)
            close(file);
    }

    int Handle() const { return file; }

private:
    int file = -1;
};
