#include "level/BitmapTileConverter.h"

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

// Every vector way works in 16-bit lanes; x86 is little-endian, as the level
// and the bitmap are. A five-bit channel c standing at bit k of a lane, the
// other bits cleared, times m has (c << 3) | (c >> 2) in the high half of
// the product when m << k is 8.25 * 65536: one high multiply widens it. Blue
// is moved up to bit 11 first, which also drops the bits above it.
constexpr int BlueUp = 11;
constexpr short WidenBlue = 264;
constexpr short GreenBits = 0x03E0;
constexpr short WidenGreen = 16896;
constexpr short RedBits = 0x7C00;
constexpr short WidenRed = 528;
// Magenta's blue, or its red, in the low byte of a lane, green zero above it.
constexpr short MagentaLane = 0x00FF;

// The SSSE3 and AVX2 ways join blue and green in one lane and red in
// another, put magenta where bit 15 is clear, interleave the two into
// blue-green-red-zero words and squeeze the zero bytes out.

struct Lanes128
{
    __m128i blueGreen, red;
};

__attribute__((target("ssse3"))) __m128i choose128(__m128i opaque, __m128i colour)
{
    return _mm_or_si128(_mm_and_si128(opaque, colour), _mm_andnot_si128(opaque, _mm_set1_epi16(MagentaLane)));
}

__attribute__((target("ssse3"))) Lanes128 lanes128(__m128i pixels)
{
    const __m128i opaque = _mm_srai_epi16(pixels, 15);
    const __m128i blue = _mm_mulhi_epu16(_mm_slli_epi16(pixels, BlueUp), _mm_set1_epi16(WidenBlue));
    const __m128i green = _mm_mulhi_epu16(_mm_and_si128(pixels, _mm_set1_epi16(GreenBits)), _mm_set1_epi16(WidenGreen));
    const __m128i red = _mm_mulhi_epu16(_mm_and_si128(pixels, _mm_set1_epi16(RedBits)), _mm_set1_epi16(WidenRed));
    return {choose128(opaque, _mm_or_si128(blue, _mm_slli_epi16(green, 8))), choose128(opaque, red)};
}

__attribute__((target("ssse3"))) void convertRowSsse3(const char* in, char* out)
{
    const __m128i squeeze = _mm_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1);
    for (int x = 0; x < TileSide; x += 8, in += 16, out += 24) {
        const Lanes128 lanes = lanes128(_mm_loadu_si128(reinterpret_cast<const __m128i*>(in)));
        const __m128i first = _mm_shuffle_epi8(_mm_unpacklo_epi16(lanes.blueGreen, lanes.red), squeeze);
        const __m128i second = _mm_shuffle_epi8(_mm_unpackhi_epi16(lanes.blueGreen, lanes.red), squeeze);
        // 16-byte stores of 12 useful bytes: the next store covers the
        // spare four, and the last of a row stores 12 bytes only, so nothing
        // is written past the row.
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out), first);
        _mm_storel_epi64(reinterpret_cast<__m128i*>(out + 12), second);
        const quint32 tail = quint32(_mm_cvtsi128_si32(_mm_srli_si128(second, 8)));
        std::memcpy(out + 20, &tail, 4);
    }
}

struct Lanes256
{
    __m256i blueGreen, red;
};

__attribute__((target("avx2"))) __m256i choose256(__m256i opaque, __m256i colour)
{
    return _mm256_blendv_epi8(_mm256_set1_epi16(MagentaLane), colour, opaque);
}

__attribute__((target("avx2"))) Lanes256 lanes256(__m256i pixels)
{
    const __m256i opaque = _mm256_srai_epi16(pixels, 15);
    const __m256i blue = _mm256_mulhi_epu16(_mm256_slli_epi16(pixels, BlueUp), _mm256_set1_epi16(WidenBlue));
    const __m256i green =
        _mm256_mulhi_epu16(_mm256_and_si256(pixels, _mm256_set1_epi16(GreenBits)), _mm256_set1_epi16(WidenGreen));
    const __m256i red =
        _mm256_mulhi_epu16(_mm256_and_si256(pixels, _mm256_set1_epi16(RedBits)), _mm256_set1_epi16(WidenRed));
    return {choose256(opaque, _mm256_or_si256(blue, _mm256_slli_epi16(green, 8))), choose256(opaque, red)};
}

// AVX2 interleaves within each 128-bit half, so of the sixteen pixels a step
// takes, "first" holds 0-3 and 8-11 and "second" 4-7 and 12-15.
__attribute__((target("avx2"))) void convertRowAvx2(const char* in, char* out)
{
    const __m256i squeeze = _mm256_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1, //
                                             0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1);
    for (int x = 0; x < TileSide; x += 16, in += 32, out += 48) {
        const Lanes256 lanes = lanes256(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(in)));
        const __m256i first = _mm256_shuffle_epi8(_mm256_unpacklo_epi16(lanes.blueGreen, lanes.red), squeeze);
        const __m256i second = _mm256_shuffle_epi8(_mm256_unpackhi_epi16(lanes.blueGreen, lanes.red), squeeze);
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out), _mm256_castsi256_si128(first));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out + 12), _mm256_castsi256_si128(second));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out + 24), _mm256_extracti128_si256(first, 1));
        const __m128i last = _mm256_extracti128_si256(second, 1);
        _mm_storel_epi64(reinterpret_cast<__m128i*>(out + 36), last);
        const quint32 tail = quint32(_mm_cvtsi128_si32(_mm_srli_si128(last, 8)));
        std::memcpy(out + 44, &tail, 4);
    }
}

// The AVX-512 way takes 64 pixels a step and keeps each channel in lanes of
// its own, bit 15 choosing colour or magenta through a mask register. Byte
// permutes then pack each channel into a plane of 64 bytes and deal the
// three planes out as 192 bytes of blue, green and red, in three stores.
struct Avx512Deal
{
    alignas(64) std::array<quint8, 64> lowBytes; // the low byte of each of 64 words in two vectors
    alignas(64) std::array<std::array<quint8, 64>, 3> blueGreen; // per output vector: from the blue or green plane
    alignas(64) std::array<std::array<quint8, 64>, 3> red; // per output vector: from the red plane
    std::array<quint64, 3> redBytes; // per output vector: which bytes are red
};

constexpr Avx512Deal avx512Deal = [] {
    Avx512Deal deal{};
    for (int i = 0; i < 64; ++i)
        deal.lowBytes[size_t(i)] = quint8(2 * i);
    for (int out = 0; out < 3; ++out) {
        for (int i = 0; i < 64; ++i) {
            const int byte = out * 64 + i;
            const int pixel = byte / 3;
            const int channel = byte % 3; // blue, green, red
            deal.blueGreen[size_t(out)][size_t(i)] = quint8(channel == 1 ? 64 + pixel : pixel);
            deal.red[size_t(out)][size_t(i)] = quint8(pixel);
            if (channel == 2)
                deal.redBytes[size_t(out)] |= quint64(1) << i;
        }
    }
    return deal;
}();

__attribute__((target("avx512bw,avx512vbmi"))) __m512i load512(const std::array<quint8, 64>& bytes)
{
    return _mm512_load_si512(bytes.data());
}

struct Planes512
{
    __m512i blue, green, red;
};

__attribute__((target("avx512bw,avx512vbmi"))) Planes512 channels512(__m512i pixels)
{
    const __mmask32 opaque = _mm512_movepi16_mask(pixels);
    const __m512i magenta = _mm512_set1_epi16(MagentaLane);
    const __m512i blue = _mm512_mulhi_epu16(_mm512_slli_epi16(pixels, BlueUp), _mm512_set1_epi16(WidenBlue));
    const __m512i green = _mm512_maskz_mulhi_epu16(opaque, _mm512_and_si512(pixels, _mm512_set1_epi16(GreenBits)),
                                                   _mm512_set1_epi16(WidenGreen));
    const __m512i red =
        _mm512_mulhi_epu16(_mm512_and_si512(pixels, _mm512_set1_epi16(RedBits)), _mm512_set1_epi16(WidenRed));
    return {_mm512_mask_blend_epi16(opaque, magenta, blue), green, _mm512_mask_blend_epi16(opaque, magenta, red)};
}

__attribute__((target("avx512bw,avx512vbmi"))) void convertRowAvx512(const char* in, char* out)
{
    const __m512i lowBytes = load512(avx512Deal.lowBytes);
    for (int x = 0; x < TileSide; x += 64, in += 128, out += 192) {
        const Planes512 first = channels512(_mm512_loadu_si512(in));
        const Planes512 second = channels512(_mm512_loadu_si512(in + 64));
        const __m512i blue = _mm512_permutex2var_epi8(first.blue, lowBytes, second.blue);
        const __m512i green = _mm512_permutex2var_epi8(first.green, lowBytes, second.green);
        const __m512i red = _mm512_permutex2var_epi8(first.red, lowBytes, second.red);
        for (size_t part = 0; part < 3; ++part) {
            const __m512i blueGreen = _mm512_permutex2var_epi8(blue, load512(avx512Deal.blueGreen[part]), green);
            const __m512i bytes = _mm512_mask_permutexvar_epi8(blueGreen, avx512Deal.redBytes[part],
                                                               load512(avx512Deal.red[part]), red);
            _mm512_storeu_si512(out + part * 64, bytes);
        }
    }
}

#endif

using RowConverter = void (*)(const char*, char*);

RowConverter rowConverterOf(Way way)
{
    switch (way) {
#ifdef BRINDLE_TILES_X86
    case Way::Avx512:
        return convertRowAvx512;
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
    if (__builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vbmi"))
        ways.append(Way::Avx512);
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
