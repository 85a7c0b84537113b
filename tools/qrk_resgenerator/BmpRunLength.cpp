// SPDX-License-Identifier: MIT
#include "BmpRunLength.h"

#include <algorithm>

Outcome BmpRunLength::NextRow(std::span<std::uint8_t> row)
{
    std::ranges::fill(row, std::uint8_t{0});
    if (m_rowsToSkip > 0)
        --m_rowsToSkip;
    if (m_hasEnded || m_rowsToSkip > 0)
        return Outcome::Done();

    Step step = Step::SameRow;
    while (step == Step::SameRow) {
        if (m_data.size() - m_at < 2)
            return Broken();
        const unsigned count = m_data[m_at];
        const std::uint8_t value = m_data[m_at + 1];
        m_at += 2;
        step = count > 0 ? Run(row, count, value) : Escape(row, value);
    }
    return step == Step::Broken ? Broken() : Outcome::Done();
}

Outcome BmpRunLength::Finish()
{
    // The last row is followed by the end of the picture, possibly after the end of that row.
    const bool isMarked = m_data.size() - m_at >= 2 && m_data[m_at] == 0 && m_data[m_at + 1] == 1;
    return m_hasEnded || isMarked ? Outcome::Done() : Broken();
}

BmpRunLength::Step BmpRunLength::Run(std::span<std::uint8_t> row, unsigned count, std::uint8_t value)
{
    for (unsigned pixel = 0; pixel < count && m_x < row.size(); ++pixel) {
        const unsigned half = pixel % 2 == 0 ? value >> 4 : value & 0x0F;
        row[m_x++] = m_hasHalfBytes ? static_cast<std::uint8_t>(half) : value;
    }
    return Step::SameRow;
}

BmpRunLength::Step BmpRunLength::Escape(std::span<std::uint8_t> row, unsigned kind)
{
    switch (kind) {
    case 0:
        m_x = 0;
        return Step::RowIsOver;
    case 1:
        m_hasEnded = true;
        return Step::RowIsOver;
    case 2: {
        if (m_data.size() - m_at < 2)
            return Step::Broken;
        const unsigned right = m_data[m_at];
        m_rowsToSkip = m_data[m_at + 1];
        m_at += 2;
        m_x = std::min(m_x + right, row.size());
        return m_rowsToSkip > 0 ? Step::RowIsOver : Step::SameRow;
    }
    default:
        return Indices(row, kind);
    }
}

BmpRunLength::Step BmpRunLength::Indices(std::span<std::uint8_t> row, unsigned count)
{
    const std::size_t used = m_hasHalfBytes ? (count + 1) / 2 : count;
    const std::size_t size = (used + 1) / 2 * 2;
    if (size > m_data.size() - m_at)
        return Step::Broken;
    for (unsigned pixel = 0; pixel < count && m_x < row.size(); ++pixel) {
        if (!m_hasHalfBytes) {
            row[m_x++] = m_data[m_at + pixel];
        } else {
            const std::uint8_t pair = m_data[m_at + pixel / 2];
            row[m_x++] = static_cast<std::uint8_t>(pixel % 2 == 0 ? pair >> 4 : pair & 0x0F);
        }
    }
    m_at += size;
    return Step::SameRow;
}

Outcome BmpRunLength::Broken() const
{
    return Outcome::Failed("broken bmp: the runs end at byte %zu of %zu, expected an end-of-picture mark", m_at,
                           m_data.size());
}
