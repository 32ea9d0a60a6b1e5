#pragma once

#include <QString>
#include <QtGlobal>

// The game a level belongs to is told by the 32-bit long at its offset 0,
// shown as eight upper-case hexadecimal digits and compared without case.
namespace LevelVersion {

inline constexpr quint32 TR1 = 0x00000020;
inline constexpr quint32 TR2 = 0x0000002D;
inline constexpr quint32 TR3 = 0xFF180038;

inline constexpr char TR1String[] = "00000020";
inline constexpr char TR2String[] = "0000002D";
inline constexpr char TR3String[] = "FF180038";

enum class Game { Unknown, TR1, TR2, TR3 };

Game gameOf(const QString& versionString);
Game gameOf(quint32 version);
QString gameName(Game game); // "TR1", "TR2", "TR3" or "unknown"

// TR2 and TR3 levels are the ones whose tables, tiles and geometry Brindle reads.
bool hasTextureTables(Game game);

// Why a level of another version is refused: "not a TR2 or TR3 level (version ...)".
QString refusal(const QString& versionString);

} // namespace LevelVersion
