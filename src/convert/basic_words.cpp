#include "convert/basic_words.h"

#include <string_view>

#include "core/byte_helpers.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kColorCommands =
    "FOR,GO,REM,',ELSE,IF,DATA,PRINT,ON,INPUT,END,NEXT,DIM,READ,RUN,RESTORE,RETURN,STOP,POKE,CONT,"
    "LIST,CLEAR,NEW,CLOAD,CSAVE,OPEN,CLOSE,LLIST,SET,RESET,CLS,MOTOR,SOUND,AUDIO,EXEC,SKIPF,TAB(,"
    "TO,SUB,THEN,NOT,STEP,OFF,+,-,*,/,^,AND,OR,>,=,<";
constexpr std::string_view kExtendedCommands =
    "DEL,EDIT,TRON,TROFF,DEF,LET,LINE,PCLS,PSET,PRESET,SCREEN,PCLEAR,COLOR,CIRCLE,PAINT,GET,PUT,"
    "DRAW,PCOPY,PMODE,PLAY,DLOAD,RENUM,FN,USING";
constexpr std::string_view kDiskCommands =
    "DIR,DRIVE,FIELD,FILES,KILL,LOAD,LSET,MERGE,RENAME,RSET,SAVE,WRITE,VERIFY,UNLOAD,DSKINI,"
    "BACKUP,COPY,DSKI$,DSKO$,DOS";
constexpr std::string_view kSuperCommands =
    "WIDTH,PALETTE,HSCREEN,LPOKE,HCLS,HCOLOR,HPAINT,HCIRCLE,HLINE,HGET,HPUT,HBUFF,HPRINT,ERR,BRK,"
    "LOCATE,HSTAT,HSET,HRESET,HDRAW,CMP,RGB,ATTR";

constexpr std::string_view kColorFunctions =
    "SGN,INT,ABS,USR,RND,SIN,PEEK,LEN,STR$,VAL,ASC,CHR$,EOF,JOYSTK,LEFT$,RIGHT$,MID$,POINT,INKEY$,"
    "MEM";
/// VARPT has no R here: the letter behind it is stored as it stands.
constexpr std::string_view kExtendedFunctions =
    "ATN,COS,TAN,EXP,FIX,LOG,POS,SQR,HEX$,VARPT,INSTR,TIMER,PPOINT,STRING$";
constexpr std::string_view kDiskFunctions = "CVN,FREE,LOC,LOF,MKN$,AS";
/// The comma in front makes the empty entry 0xA8: Super Extended begins at 0xA9.
constexpr std::string_view kSuperFunctions = ",LPEEK,BUTTON,HPOINT,ERNO,ERLIN";

constexpr std::string_view kDragonBasicCommands =
    "FOR,GO,REM,',ELSE,IF,DATA,PRINT,ON,INPUT,END,NEXT,DIM,READ,LET,RUN,RESTORE,RETURN,STOP,POKE,"
    "CONT,LIST,CLEAR,NEW,DEF,CLOAD,CSAVE,OPEN,CLOSE,LLIST,SET,RESET,CLS,MOTOR,SOUND,AUDIO,EXEC,"
    "SKIPF,DEL,EDIT,TRON,TROFF,LINE,PCLS,PSET,PRESET,SCREEN,PCLEAR,COLOR,CIRCLE,PAINT,GET,PUT,"
    "DRAW,PCOPY,PMODE,PLAY,DLOAD,RENUM,TAB(,TO,SUB,FN,THEN,NOT,STEP,OFF,+,-,*,/,^,AND,OR,>,=,<,"
    "USING";
constexpr std::string_view kDragonDosCommands =
    "AUTO,BACKUP,BEEP,BOOT,CHAIN,COPY,CREATE,DIR,DRIVE,DSKINIT,FREAD,FWRITE,ERROR,KILL,LOAD,MERGE,"
    "PROTECT,WAIT,RENAME,SAVE,SREAD,SWRITE,VERIFY,FROM,FLREAD,SWAP";

constexpr std::string_view kDragonBasicFunctions =
    "SGN,INT,ABS,POS,RND,SQR,LOG,EXP,SIN,COS,TAN,ATN,PEEK,LEN,STR$,VAL,ASC,CHR$,EOF,JOYSTK,FIX,"
    "HEX$,LEFT$,RIGHT$,MID$,POINT,INKEY$,MEM,VARPTR,INSTR,TIMER,PPOINT,STRING$,USR";
constexpr std::string_view kDragonDosFunctions = "LOF,FREE,ERL,ERR,HIMEM,LOC,FRE$";

std::vector<std::string> WordList(const std::vector<std::string_view>& lists) {
    std::string joined;
    for (const std::string_view list : lists) {
        if (!joined.empty()) joined += ',';
        joined += list;
    }
    return SplitText(joined, ",");
}

}  // namespace

std::vector<std::string> CocoCommands;
std::vector<std::string> CocoFunctions;
std::vector<std::string> DragonCommands;
std::vector<std::string> DragonFunctions;
std::array<std::array<std::int16_t, 2>, kUsageRows> WordUsage = {};

void BuildBasicWords() {
    if (!DragonFunctions.empty()) return;
    CocoCommands = WordList({kColorCommands, kExtendedCommands, kDiskCommands, kSuperCommands});
    CocoFunctions =
        WordList({kColorFunctions, kExtendedFunctions, kDiskFunctions, kSuperFunctions});
    DragonCommands = WordList({kDragonBasicCommands, kDragonDosCommands});
    DragonFunctions = WordList({kDragonBasicFunctions, kDragonDosFunctions});
}

const std::vector<std::string>& CommandsOf(BasicMachine machine) {
    BuildBasicWords();
    return machine == kCocoBasic ? CocoCommands : DragonCommands;
}

const std::vector<std::string>& FunctionsOf(BasicMachine machine) {
    BuildBasicWords();
    return machine == kCocoBasic ? CocoFunctions : DragonFunctions;
}

}  // namespace brindlemoor
