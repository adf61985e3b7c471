#include "convert/basic_model.h"

#include <cctype>
#include <cstdlib>
#include <sstream>

namespace brindlemoor::test {

namespace {

// "(empty)" stands for the entry without a word.
const char* const kCocoCommandRows =
    "FOR     GO      REM     '       ELSE    IF      DATA    PRINT "    // 0x80
    "ON      INPUT   END     NEXT    DIM     READ    RUN     RESTORE "  // 0x88
    "RETURN  STOP    POKE    CONT    LIST    CLEAR   NEW     CLOAD "    // 0x90
    "CSAVE   OPEN    CLOSE   LLIST   SET     RESET   CLS     MOTOR "    // 0x98
    "SOUND   AUDIO   EXEC    SKIPF   TAB(    TO      SUB     THEN "     // 0xA0
    "NOT     STEP    OFF     +       -       *       /       ^ "        // 0xA8
    "AND     OR      >       =       <       DEL     EDIT    TRON "     // 0xB0
    "TROFF   DEF     LET     LINE    PCLS    PSET    PRESET  SCREEN "   // 0xB8
    "PCLEAR  COLOR   CIRCLE  PAINT   GET     PUT     DRAW    PCOPY "    // 0xC0
    "PMODE   PLAY    DLOAD   RENUM   FN      USING   DIR     DRIVE "    // 0xC8
    "FIELD   FILES   KILL    LOAD    LSET    MERGE   RENAME  RSET "     // 0xD0
    "SAVE    WRITE   VERIFY  UNLOAD  DSKINI  BACKUP  COPY    DSKI$ "    // 0xD8
    "DSKO$   DOS     WIDTH   PALETTE HSCREEN LPOKE   HCLS    HCOLOR "   // 0xE0
    "HPAINT  HCIRCLE HLINE   HGET    HPUT    HBUFF   HPRINT  ERR "      // 0xE8
    "BRK     LOCATE  HSTAT   HSET    HRESET  HDRAW   CMP     RGB "      // 0xF0
    "ATTR";                                                             // 0xF8
const char* const kCocoFunctionRows =
    "SGN     INT     ABS     USR     RND     SIN     PEEK    LEN "     // 0x80
    "STR$    VAL     ASC     CHR$    EOF     JOYSTK  LEFT$   RIGHT$ "  // 0x88
    "MID$    POINT   INKEY$  MEM     ATN     COS     TAN     EXP "     // 0x90
    "FIX     LOG     POS     SQR     HEX$    VARPT   INSTR   TIMER "   // 0x98
    "PPOINT  STRING$ CVN     FREE    LOC     LOF     MKN$    AS "      // 0xA0
    "(empty) LPEEK   BUTTON  HPOINT  ERNO    ERLIN";                   // 0xA8
const char* const kDragonCommandRows =
    "FOR     GO      REM     '       ELSE    IF      DATA    PRINT "    // 0x80
    "ON      INPUT   END     NEXT    DIM     READ    LET     RUN "      // 0x88
    "RESTORE RETURN  STOP    POKE    CONT    LIST    CLEAR   NEW "      // 0x90
    "DEF     CLOAD   CSAVE   OPEN    CLOSE   LLIST   SET     RESET "    // 0x98
    "CLS     MOTOR   SOUND   AUDIO   EXEC    SKIPF   DEL     EDIT "     // 0xA0
    "TRON    TROFF   LINE    PCLS    PSET    PRESET  SCREEN  PCLEAR "   // 0xA8
    "COLOR   CIRCLE  PAINT   GET     PUT     DRAW    PCOPY   PMODE "    // 0xB0
    "PLAY    DLOAD   RENUM   TAB(    TO      SUB     FN      THEN "     // 0xB8
    "NOT     STEP    OFF     +       -       *       /       ^ "        // 0xC0
    "AND     OR      >       =       <       USING   AUTO    BACKUP "   // 0xC8
    "BEEP    BOOT    CHAIN   COPY    CREATE  DIR     DRIVE   DSKINIT "  // 0xD0
    "FREAD   FWRITE  ERROR   KILL    LOAD    MERGE   PROTECT WAIT "     // 0xD8
    "RENAME  SAVE    SREAD   SWRITE  VERIFY  FROM    FLREAD  SWAP";     // 0xE0
const char* const kDragonFunctionRows =
    "SGN     INT     ABS     POS     RND     SQR     LOG     EXP "     // 0x80
    "SIN     COS     TAN     ATN     PEEK    LEN     STR$    VAL "     // 0x88
    "ASC     CHR$    EOF     JOYSTK  FIX     HEX$    LEFT$   RIGHT$ "  // 0x90
    "MID$    POINT   INKEY$  MEM     VARPTR  INSTR   TIMER   PPOINT "  // 0x98
    "STRING$ USR     LOF     FREE    ERL     ERR     HIMEM   LOC "     // 0xA0
    "FRE$";                                                            // 0xA8

std::vector<std::string> WordsIn(const char* rows) {
    std::istringstream stream(rows);
    std::vector<std::string> words;
    for (std::string word; stream >> word;) words.push_back(word == "(empty)" ? "" : word);
    return words;
}

int ByteIn(const std::string& data, std::size_t at) {
    return at < data.size() ? static_cast<unsigned char>(data[at]) : 0;
}

int PairIn(const std::string& data, std::size_t at) {
    if (at + 1 >= data.size()) return ByteIn(data, at);
    return ByteIn(data, at) * 256 + ByteIn(data, at + 1);
}

void PutPair(std::string& data, std::size_t at, int value) {
    data[at] = static_cast<char>(value / 256);
    data[at + 1] = static_cast<char>(value % 256);
}

}  // namespace

const std::vector<std::string>& PrintedCommands(bool coco) {
    static const auto kCoco = WordsIn(kCocoCommandRows);
    static const auto kDragon = WordsIn(kDragonCommandRows);
    return coco ? kCoco : kDragon;
}

const std::vector<std::string>& PrintedFunctions(bool coco) {
    static const auto kCoco = WordsIn(kCocoFunctionRows);
    static const auto kDragon = WordsIn(kDragonFunctionRows);
    return coco ? kCoco : kDragon;
}

ModelResult ModelToText(const std::string& data, bool addLineFeed, bool cancel) {
    ModelResult model;
    const bool coco = ByteIn(data, 0) == 0xFF;
    std::string file = data;
    if (coco) file = data.substr(0, static_cast<std::size_t>(PairIn(data, 1) + 1));
    if (!coco && ByteIn(data, 8) != 0xAA) {
        model.Messages.emplace_back(
            "El archivo no contiene &hAA en el Byte 9\r\n"
            "Error !!! En encabezado DRAGON BAS Comprimido");
    }
    std::size_t at = coco ? 3 : 9;
    std::string word;
    int next = 0;
    model.Bytes = "\r";
    while (at + 2 <= file.size() && PairIn(file, at) != 0) {
        model.Bytes += std::to_string(PairIn(file, at + 2)) + " ";
        for (at += 4;; ++at) {
            if (at >= file.size()) {
                model.Messages.emplace_back("Final de archivo inesperado");
                break;
            }
            int byte = ByteIn(file, at);
            if (at + 1 < file.size()) next = ByteIn(file, at + 1);
            if (byte == 0) byte = 13;
            const bool function = byte == 255;
            if (function) byte = ByteIn(file, ++at);
            const auto& words = function ? PrintedFunctions(coco) : PrintedCommands(coco);
            const int index = byte - 128;
            const int highest = static_cast<int>(words.size()) - 1;
            if (index >= 0 && index <= highest) {
                word = words[static_cast<std::size_t>(index)];
            } else if (function || byte > 248) {
                model.Messages.push_back(
                    "Position: " + std::to_string(at + 1) + (function ? " Fn: " : " Command: ") +
                    std::to_string(index) + " Max: " + std::to_string(highest));
                if (cancel) return {"", model.Messages};
            } else if (byte == ':' && (next == 0x83 || next == 0x84)) {
                ++at;
                word = next == 0x83 ? "'" : "ELSE";
            } else {
                word = static_cast<char>(byte);
            }
            model.Bytes += word;
            if (byte == 13) {
                if (addLineFeed) model.Bytes += "\n";
                ++at;
                break;
            }
        }
    }
    return model;
}

namespace {

/// The token of the first word in a list with which `text` goes on at `at`; moves `at` to the
/// word's last byte. Empty when there is none.
std::string FirstWord(const std::string& text, std::size_t& at,
                      const std::vector<std::string>& list, std::size_t& place) {
    for (place = 0; place < list.size(); ++place) {
        const std::string& word = list[place];
        if (word.empty() || text.compare(at, word.size(), word) != 0) continue;
        at += word.size() - 1;
        return {static_cast<char>(128 + place)};
    }
    return {};
}

/// Stores the text of one line, and leaves `at` behind the byte that ended it.
void ModelBody(const std::string& text, std::size_t& at, bool coco, std::string& out) {
    int inQuote = 0;
    int inData = 0;
    int inRem = 0;
    for (; at < text.size(); ++at) {
        const char byte = text[at];
        if (byte == '\r' || byte == '\n') {
            ++at;
            return;
        }
        if (inQuote + inData + inRem == 0) {
            std::size_t place = 0;
            std::string token;
            if (byte == '?') {
                out += '\x87';
            } else if (token = FirstWord(text, at, PrintedCommands(coco), place); !token.empty()) {
                if (place == 3 || place == 4) out += ":";
                out += token;
                if (place == 2 || place == 3) inRem = 1;
                if (place == 6) inData = 1;
                continue;
            } else if (token = FirstWord(text, at, PrintedFunctions(coco), place); !token.empty()) {
                out += "\xFF" + token;
                continue;
            }
        }
        if (byte == '"') {
            inQuote = inQuote == 0 ? -1 : 0;
        } else if (byte == ':' && inQuote == 0) {
            inData = 0;
        }
        out += byte;
    }
}

}  // namespace

std::string ModelToTokens(std::string text, bool coco) {
    while (!text.empty() && (text.back() == '\r' || text.back() == '\n')) text.pop_back();
    std::string out =
        coco ? std::string("\xFF\0\0", 3) : std::string("\x55\x01\x24\x01\0\0\x8B\x8D\xAA", 9);
    const std::size_t header = out.size();
    for (std::size_t at = 0; at + 1 < text.size();) {
        const std::size_t start = out.size();
        out += std::string(2, '\0');
        if (text[at] == '\r') ++at;
        while (at < text.size() && text[at] == ' ') ++at;
        if (at >= text.size()) break;
        const std::size_t blank = text.find(' ', at);
        if (blank != std::string::npos) {
            double number = 0;
            for (; std::isdigit(static_cast<unsigned char>(text[at])) != 0; ++at) {
                number = number * 10 + (text[at] - '0');
            }
            if (number > 32767) return {};
            out += std::string(2, '\0');
            PutPair(out, out.size() - 2, static_cast<int>(number));
            at = blank + 1;
        }
        while (at < text.size() && text[at] == ' ') ++at;
        if (at >= text.size()) break;
        ModelBody(text, at, coco, out);
        if (at < text.size() && text[at] == '\n') ++at;
        if (out.size() > (coco ? 23040U : 23558U)) return {};
        PutPair(out, start, static_cast<int>(out.size()) + (coco ? 9727 : 9209));
        out += '\0';
    }
    out += std::string(2, '\0');
    PutPair(out, coco ? 1 : 4, static_cast<int>(out.size() - header));
    return out;
}

}  // namespace brindlemoor::test
