#pragma once

#include "input_file.h"
#include "io_failure.h"
#include "lets_out.h"
#include "ut_utils.h"

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <type_traits>

namespace ut {

/// A file of fixed-size little-endian records as a read-only array (doc/formats/record-file.md): no header,
/// record i at byte offset i * sizeof(T). Used with `unsigned int` and `unsigned short`. The file stays open
/// and is not loaded: an access costs one read. Not thread-safe: an access overwrites the record that the
/// previous one returned.
///
/// A read that reaches the end of the file inside a record puts the object into a permanent failed state:
/// every later access throws the same "IO error", after its bounds check.
template <typename T>
class CFileVector
{
    static_assert(std::is_unsigned_v<T> && std::endian::native == std::endian::little,
                  "records are copied from the file byte for byte");

public:
    /// @throws std::ios_base::failure  "CFileVector::CFileVector(): cannot open file %s"; nothing else
    CFileVector(const char* fileName) : m_fin(fileName)
    {
        lets_out<std::ios_base::failure>("CFileVector::CFileVector()", [&, reason = errno] {
            if (!m_fin.isOpen())
                throw CIoFailure(format("CFileVector::CFileVector(): cannot open file %s", fileName), reason);
        });
        m_size = static_cast<std::size_t>(m_fin.size());
    }
    CFileVector(const CFileVector&) = delete;
    CFileVector& operator=(const CFileVector&) = delete;

    /// The same open file without the failed state.
    CFileVector afresh() const { return CFileVector(m_fin, m_size); }

    /// Number of whole records; a partial record at the end is not counted.
    std::size_t size() const { return m_size / sizeof(T); }

    /// Record `recordIndex`, from 0; valid until the next access to this object. The byte offset is computed
    /// in 32 bits and compared with the length in bytes, so a partial last record passes the bounds check,
    /// and then reading it fails.
    /// @throws std::out_of_range       "CFileVector::operator [](): recordIndex out of range"
    /// @throws std::ios_base::failure  "CFileVector::operator [](): IO error"
    const T& operator[](unsigned int recordIndex) { return atOffset(offsetOf(recordIndex)); }

    /// The record at a byte offset; checks and exceptions as for operator[].
    const T& atOffset(unsigned int byteOffset)
    {
        read(byteOffset, 1, &m_bufferedRecord);
        return m_bufferedRecord;
    }

    /// Reads records recordIndex, recordIndex + 1, ... into `records`, up to `recordCount` of them, with one
    /// read: as many as single accesses would return before the end of the file.
    /// @returns how many were read, at least 1 unless `recordCount` is 0
    /// @throws as operator[](recordIndex), if not even the first can be read
    std::size_t readRun(unsigned int recordIndex, std::size_t recordCount, T* records)
    {
        return recordCount == 0 ? 0 : read(offsetOf(recordIndex), recordCount, records);
    }

private:
    CFileVector(const CInputFile& fin, std::size_t size) : m_size(size), m_fin(fin) {}

    static unsigned int offsetOf(unsigned int recordIndex)
    {
        return recordIndex * static_cast<unsigned int>(sizeof(T));
    }

    std::size_t read(unsigned int byteOffset, std::size_t recordCount, T* records)
    {
        return lets_out<std::out_of_range, std::ios_base::failure>("CFileVector::operator []()", [&] {
            if (byteOffset >= m_size)
                throw std::out_of_range("CFileVector::operator [](): recordIndex out of range");
            constexpr std::uint64_t offsetsEnd = std::uint64_t(1) << 32;
            const std::uint64_t bytesLeft = std::min<std::uint64_t>(m_size, offsetsEnd) - byteOffset;
            const std::size_t wanted =
                std::clamp<std::size_t>(static_cast<std::size_t>(bytesLeft / sizeof(T)), 1, recordCount);
            const std::size_t whole =
                m_failed ? 0 : m_fin.readAt(byteOffset, records, wanted * sizeof(T)) / sizeof(T);
            if (whole == 0) {
                m_failed = true;
                throw CIoFailure("CFileVector::operator [](): IO error");
            }
            return whole;
        });
    }

    std::size_t m_size = 0; ///< length of the file in bytes, when it was opened
    CInputFile m_fin;
    T m_bufferedRecord = 0;
    bool m_failed = false; ///< a read came up short
};

} // namespace ut
