#pragma once

#include <QtGlobal>

#include <random>

namespace faults {

/// Numbers that are the same on every machine for the same seed, so that a try can be repeated.
class Random {
public:
    /// `stream` tells apart those who share a seed.
    explicit Random(quint64 seed, quint64 stream = 0)
    {
        std::seed_seq parts{static_cast<quint32>(seed), static_cast<quint32>(seed >> 32), static_cast<quint32>(stream),
            static_cast<quint32>(stream >> 32)};
        m_engine.seed(parts);
    }

    /// From 0 to `end`, `end` not included. REQUIRES: `end` is above 0.
    int below(qint64 end) { return static_cast<int>(m_engine() % static_cast<quint64>(end)); }
    bool chance(int percent) { return below(100) < percent; }
    quint64 seed() { return m_engine(); }

private:
    std::mt19937_64 m_engine;
};

} // namespace faults
