#include "BitmapTileConverter.h"

#include <QtEndian>

#include <array>
#include <cstring>
#include <vector>

#if defined(__x86_64__) && (defined(__GNUC__) || defined(__clang__))
#define BRINDLE_TILES_X86 1
#include <immintrin.h>
#endif

namespace {

using Way = BitmapTileConverter::Way;

constexpr int TileSide = BitmapTileConverter::TileSide;
constexpr int RowBytes = TileSide * 3; // a multiple of 4: no row padding
constexpr int RowPixelBytes = TileSide * 2;

// The eight-bit value of every five-bit channel value.
constexpr std::array<quint8, 32> widened = [] {
    std::array<quint8, 32> table{};
    for (int c = 0; c < 32; ++c)
        table[size_t(c)] = quint8((c << 3) | (c >> 2));
    return table;
}();

// The bitmap's blue, green and red bytes of every 16-bit pixel, in the low
// three bytes: one look-up per pixel instead of a branch on bit 15 that
// random pixels mispredict half the time.
const std::vector<quint32>& bitmapBytesOfEveryPixel()
{
    static const std::vector<quint32> table = [] {
        std::vector<quint32> bytes(65536);
        for (quint32 pixel = 0; pixel < bytes.size(); ++pixel) {
            const QRgb colour = BitmapTileConverter::colourOf(quint16(pixel));
            bytes[pixel] = quint32(qBlue(colour)) | quint32(qGreen(colour)) << 8 | quint32(qRed(colour)) << 16;
        }
        return bytes;
    }();
    return table;
}

void convertRowByTable(const char* in, char* out)
{
    const quint32* bytesOf = bitmapBytesOfEveryPixel().data();
    for (int x = 0; x < TileSide; ++x, in += 2, out += 3) {
        const quint32 bgr = qToLittleEndian(bytesOf[qFromLittleEndian<quint16>(in)]);
        std::memcpy(out, &bgr, 3);
    }
}

#ifdef BRINDLE_TILES_X86

// Both vector ways work the same in 16-bit lanes: widen each channel, join
// blue and green in one lane and red in another, put magenta where bit 15
// is clear, interleave the two into blue-green-red-zero words and squeeze
// the zero bytes out. x86 is little-endian, as the level and the bitmap are.

__attribute__((target("ssse3"))) __m128i widen128(__m128i pixels, int shift)
{
    const __m128i channel = _mm_and_si128(_mm_srli_epi16(pixels, shift), _mm_set1_epi16(31));
    return _mm_or_si128(_mm_slli_epi16(channel, 3), _mm_srli_epi16(channel, 2));
}

__attribute__((target("ssse3"))) __m128i choose128(__m128i opaque, __m128i colour, __m128i seeThrough)
{
    return _mm_or_si128(_mm_and_si128(opaque, colour), _mm_andnot_si128(opaque, seeThrough));
}

__attribute__((target("ssse3"))) void convertRowSsse3(const char* in, char* out)
{
    const __m128i squeeze = _mm_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1);
    for (int x = 0; x < TileSide; x += 8, in += 16, out += 24) {
        const __m128i pixels = _mm_loadu_si128(reinterpret_cast<const __m128i*>(in));
        const __m128i opaque = _mm_srai_epi16(pixels, 15);
        const __m128i blueGreen = choose128(
            opaque, _mm_or_si128(widen128(pixels, 0), _mm_slli_epi16(widen128(pixels, 5), 8)), _mm_set1_epi16(0x00FF));
        const __m128i red = choose128(opaque, widen128(pixels, 10), _mm_set1_epi16(0x00FF));
        const __m128i first = _mm_shuffle_epi8(_mm_unpacklo_epi16(blueGreen, red), squeeze);
        const __m128i second = _mm_shuffle_epi8(_mm_unpackhi_epi16(blueGreen, red), squeeze);
        // 16-byte stores of 12 useful bytes: the next store covers the
        // spare four, and the last of a row stores 12 bytes only, so nothing
        // is written past the row.
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out), first);
        _mm_storel_epi64(reinterpret_cast<__m128i*>(out + 12), second);
        const quint32 tail = quint32(_mm_cvtsi128_si32(_mm_srli_si128(second, 8)));
        std::memcpy(out + 20, &tail, 4);
    }
}

__attribute__((target("avx2"))) __m256i widen256(__m256i pixels, int shift)
{
    const __m256i channel = _mm256_and_si256(_mm256_srli_epi16(pixels, shift), _mm256_set1_epi16(31));
    return _mm256_or_si256(_mm256_slli_epi16(channel, 3), _mm256_srli_epi16(channel, 2));
}

__attribute__((target("avx2"))) __m256i choose256(__m256i opaque, __m256i colour, __m256i seeThrough)
{
    return _mm256_or_si256(_mm256_and_si256(opaque, colour), _mm256_andnot_si256(opaque, seeThrough));
}

// AVX2 interleaves within each 128-bit half, so of the sixteen pixels a step
// takes, "first" holds 0-3 and 8-11 and "second" 4-7 and 12-15.
__attribute__((target("avx2"))) void convertRowAvx2(const char* in, char* out)
{
    const __m256i squeeze = _mm256_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1, //
                                             0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1);
    for (int x = 0; x < TileSide; x += 16, in += 32, out += 48) {
        const __m256i pixels = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(in));
        const __m256i opaque = _mm256_srai_epi16(pixels, 15);
        const __m256i blueGreen = choose256(
            opaque, _mm256_or_si256(widen256(pixels, 0), _mm256_slli_epi16(widen256(pixels, 5), 8)),
            _mm256_set1_epi16(0x00FF));
        const __m256i red = choose256(opaque, widen256(pixels, 10), _mm256_set1_epi16(0x00FF));
        const __m256i first = _mm256_shuffle_epi8(_mm256_unpacklo_epi16(blueGreen, red), squeeze);
        const __m256i second = _mm256_shuffle_epi8(_mm256_unpackhi_epi16(blueGreen, red), squeeze);
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out), _mm256_castsi256_si128(first));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out + 12), _mm256_castsi256_si128(second));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out + 24), _mm256_extracti128_si256(first, 1));
        const __m128i last = _mm256_extracti128_si256(second, 1);
        _mm_storel_epi64(reinterpret_cast<__m128i*>(out + 36), last);
        const quint32 tail = quint32(_mm_cvtsi128_si32(_mm_srli_si128(last, 8)));
        std::memcpy(out + 44, &tail, 4);
    }
}

#endif

using RowConverter = void (*)(const char*, char*);

RowConverter rowConverterOf(Way way)
{
    switch (way) {
#ifdef BRINDLE_TILES_X86
    case Way::Avx2:
        return convertRowAvx2;
    case Way::Ssse3:
        return convertRowSsse3;
#endif
    default:
        return convertRowByTable;
    }
}

} // namespace

QRgb BitmapTileConverter::colourOf(quint16 pixel)
{
    if (!(pixel & 0x8000))
        return SeeThrough;
    return qRgb(widened[(pixel >> 10) & 31], widened[(pixel >> 5) & 31], widened[pixel & 31]);
}

QList<BitmapTileConverter::Way> BitmapTileConverter::waysOfThisProcessor()
{
    QList<Way> ways{Way::Table};
#ifdef BRINDLE_TILES_X86
    if (__builtin_cpu_supports("ssse3"))
        ways.append(Way::Ssse3);
    if (__builtin_cpu_supports("avx2"))
        ways.append(Way::Avx2);
#endif
    return ways;
}

void BitmapTileConverter::convertTile(const char* tile16, char* bitmapTile)
{
    static const Way fastest = waysOfThisProcessor().constLast();
    convertTile(tile16, bitmapTile, fastest);
}

void BitmapTileConverter::convertTile(const char* tile16, char* bitmapTile, Way way)
{
    const RowConverter convertRow = rowConverterOf(way);
    for (int row = 0; row < TileSide; ++row)
        convertRow(tile16 + row * RowPixelBytes, bitmapTile + (TileSide - 1 - row) * RowBytes);
}
