#include "macro/language/random_numbers.h"

#include <chrono>
#include <cmath>

void RandomNumbers::SeedFromTime()
{
    engine.seed(quint64(std::chrono::steady_clock::now().time_since_epoch().count()));
}

qint64 RandomNumbers::Between(qint32 low, qint32 high)
{
    return qint64(std::floor(Next() * (double(high) - double(low) + 1) + double(low)));
}
