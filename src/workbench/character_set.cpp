#include "workbench/character_set.h"

#include <array>
#include <cstdint>

#include "workbench/character_glyphs.h"

namespace brindlemoor {

namespace {

// Colours of the MC6847, 0x00BBGGRR.
constexpr std::int32_t kBlack = 0x000000;
constexpr std::int32_t kGreen = kScreenGreen;
constexpr std::int32_t kDarkGreen = 0x003C00;
constexpr std::int32_t kYellow = 0x00FFFF;
constexpr std::int32_t kBlue = 0xFF083B;
constexpr std::int32_t kRed = 0x3B00CC;
constexpr std::int32_t kBuff = 0xFFFFFF;
constexpr std::int32_t kCyan = 0x99E307;
constexpr std::int32_t kMagenta = 0xFF1CFF;
constexpr std::int32_t kOrange = 0x0081FF;

/// The block graphics by bits 4 to 6 of their code.
constexpr std::array<std::int32_t, 8> kBlockColours = {kGreen, kYellow, kBlue,    kRed,
                                                       kBuff,  kCyan,   kMagenta, kOrange};

constexpr int kPictureWidth = kCharacterWidth * kCharactersInRow;
constexpr int kPictureHeight = 384;

constexpr int kFirstNormal = 64;
constexpr int kFirstBlock = 128;

// A cell has 8 by 12 dots, each drawn as 2 by 2 pixels; the glyph stands in its lower right part.
constexpr int kDot = 2;
constexpr int kGlyphLeft = 2;
constexpr int kGlyphTop = 3;

struct Cell {
    int Left;
    int Top;
};

Cell CellOfCharacter(int code) {
    return {code % kCharactersInRow * kCharacterWidth, code / kCharactersInRow * kCharacterHeight};
}

void Fill(Picture& set, int left, int top, int width, int height, std::int32_t colour) {
    FillBox(set, left, top, left + width - 1, top + height - 1, colour);
}

void DrawLetter(Picture& set, int code) {
    const Cell cell = CellOfCharacter(code);
    const bool normal = code >= kFirstNormal;
    const std::int32_t ink = normal ? kDarkGreen : kGreen;
    Fill(set, cell.Left, cell.Top, kCharacterWidth, kCharacterHeight, normal ? kGreen : kDarkGreen);
    for (int y = 0; y < kGlyphHeight; ++y) {
        for (int x = 0; x < kGlyphWidth; ++x) {
            if (!GlyphDot(code % kGlyphCount, x, y)) continue;
            Fill(set, cell.Left + (kGlyphLeft + x) * kDot, cell.Top + (kGlyphTop + y) * kDot, kDot,
                 kDot, ink);
        }
    }
}

/// The blocks by bits 3 to 0 of the code: upper left, upper right, lower left, lower right.
void DrawBlocks(Picture& set, int code) {
    constexpr int kHalfWidth = kCharacterWidth / 2;
    constexpr int kHalfHeight = kCharacterHeight / 2;
    const Cell cell = CellOfCharacter(code);
    const std::int32_t colour = kBlockColours[static_cast<std::size_t>((code >> 4) & 7)];
    for (int block = 0; block < 4; ++block) {
        const bool lit = (code >> (3 - block) & 1) != 0;
        Fill(set, cell.Left + block % 2 * kHalfWidth, cell.Top + block / 2 * kHalfHeight,
             kHalfWidth, kHalfHeight, lit ? colour : kBlack);
    }
}

Picture DrawCharacterSet() {
    Picture set;
    ResizePicture(set, kPictureWidth, kPictureHeight);
    for (int code = 0; code < kFirstBlock; ++code) DrawLetter(set, code);
    for (int code = kFirstBlock; code < 256; ++code) DrawBlocks(set, code);
    return set;
}

}  // namespace

const Picture& CharacterSet() {
    static const Picture set = DrawCharacterSet();
    return set;
}

}  // namespace brindlemoor
