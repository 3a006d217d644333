#pragma once

#include <QtGlobal>
#include <random>

/// The macro's own generator. The same seed gives the same numbers.
class RandomNumbers
{
public:
    RandomNumbers() { SeedFromTime(); }
    void Seed(quint32 seed) { engine.seed(seed); }
    void SeedFromTime();
    double Next() { return double(engine() >> 11) * 0x1p-53; } ///< from 0 up to 1
    qint64 Between(qint32 low, qint32 high);                   ///< floor(r x (high - low + 1) + low)

private:
    std::mt19937_64 engine;
};
