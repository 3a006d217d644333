#pragma once

/// The sound device and its mixer: 44100 Hz, two channels of 16 bits, whatever the hardware is.
class Device
{
public:
    static constexpr int Rate = 44100;

    Device() = default;
    ~Device();
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    /// False if there is none; the next call tries again.
    [[nodiscard]] bool Open();
    void Close();
    bool IsOpen() const { return open; }

private:
    bool open = false;
};
