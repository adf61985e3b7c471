#include "core/settings_text.h"

#include <string_view>
#include <vector>

#include "core/byte_helpers.h"
#include "core/settings.h"

namespace brindlemoor {

namespace {

/// What ends a line while the text is put together.
constexpr std::string_view kLineMark = "|";

/// One line of `[General]` or `[Audio Options]`.
struct SettingRow {
    std::string_view Key;
    std::string_view Value;
};

/// One line of the language sections, in both languages; both have the same keys in the same
/// order, which is the order of the file.
struct LanguageRow {
    std::string_view Key;
    std::string_view English;
    std::string_view Spanish;
};

// In the place of a key: a comment line, and one more item of the list that began above.
constexpr std::string_view kComment = "'";
constexpr std::string_view kNextItem = ",";

// In the place of an item: this language's list has one item fewer.
constexpr std::string_view kNoItem = "|none";

// In the place of a value: the program's version.
constexpr std::string_view kVersion = "|version";

constexpr SettingRow kGeneral[] = {
    {"Languages", "English,Spanish"},
    {"CurrentLanguage", "English"},
    {"Version", kVersion},
    // `ApplyLanguage` knows this key with a capital G, and so passes over it: the grid keeps the
    // alternate row colour of its design.
    {"AlternateRowBackgroundColor", "15138044"},
    {"SectorErrorColor", "13158655"},
    {"ContinueDirEntryColor", "13158600"},
    {"ColumnOrder", "1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18"},
    {"ColumnWidths", "65,33,17,17,26,26,60,60,50,55,33,110,110,33,33,33,40,333"},
    {kComment, "Visible Columns: CoCo, Dragon, Nitro, Flex"},
    {"VisibleColumns",
     "111101111100011101,111110111110000111,110010111111100001,110010111111100101"},
};

// The keys are the names of the controls of the audio window. `WavConvert` finds those behind
// `WavFormat` by their distance from it.
//
// One row, one text:
// clang-format off
constexpr SettingRow kAudioOptions[] = {
    {"Show", "False"},
    {"Output", "WAV"},
    {"WavFormat", "1"},
    {"SampleRate", "44100"},
    {"BitsPerSample", "8"},
    {"NumChannels", "1"},
    {"Volume", "110"},
    {"Frec1200", "1200"},
    {"Frec2400", "2400"},
    {"SilenceStart", "0"},
    {"SilenceHeader", "500"},
    {"SilenceBlock", "0"},
};

constexpr LanguageRow kLanguages[] = {
    {kComment, "You can create more languages", "Usted puede crear mas idionas"},

    {"MainMenu", "Files", "Archivos"},
    {kNextItem, "Options", "Opciones"},
    {kNextItem, "Help", "Ayuda"},
    {"FilesMenu", "New", "Nuevo"},
    {kNextItem, "-", "-"},
    {kNextItem, "Open", "Abrir"},
    {kNextItem, "ReOpen (Undo)", "ReAbrir (Undo)"},
    {kNextItem, "-", "-"},
    {kNextItem, "Save", "Guardar"},
    {kNextItem, "Save As...", "Guardar como..."},
    {kNextItem, "-", "-"},
    {kNextItem, "Exit", "Salir"},
    {"OptionsMenu", "Language", "Lenguaje"},
    {kNextItem, "Colours", "Colores"},
    {"LanguageMenu", "English", "Ingles"},
    {kNextItem, "Spanish", "Español"},
    {"HelpMenu", "Help (Information)", "Ayuda (Información)"},
    {kNextItem, "Web", "Web"},
    {kNextItem, "About...", "Acerca de..."},
    {"ColumnsMenu", "Name", "Nombre"},
    {kNextItem, "Extension", "Extensión"},
    {kNextItem, "Type", "Tipo"},
    {kNextItem, "Format", "Formato"},
    {kNextItem, "Used Sectors", "Sectores Usados"},
    {kNextItem, "Used Granules", "Granulos Usados"},
    {kNextItem, "Size", "Tamaño"},
    {kNextItem, "Used Bytes", "Bytes Usados"},
    {kNextItem, "Difference", "Diferencia"},
    {kNextItem, "%Efficiency", "%Eficiencia"},
    {kNextItem, "Attributes", "Atributos"},
    {kNextItem, "Creation Date", "Fecha de Creación"},
    {kNextItem, "Update", "Fecha de Modificación"},
    {kNextItem, "Initial granule", "Granulo Inicial"},
    {kNextItem, "Sectors in the Last Granule", "Sectores en el Último Granulo"},
    {kNextItem, "Bytes in the last Sector", "Bytes en el Último Sector"},
    {kNextItem, "Next Continue Directory Entry", "Proxima Entrada de directorio para Continuaciones"},
    {kNextItem, "Granules or Sectors secuence", "Secuencia de granulos o Sectores"},
    {"PopMenu", "View", "Ver"},
    {kNextItem, "Edit", "Editar"},
    {kNextItem, "Edit HEX", "Editar HEX"},
    {kNextItem, "Paint", "Pintar"},
    {kNextItem, "-", "-"},
    {kNextItem, "Convert", "Convertir"},
    {kNextItem, "Save", "Grabar"},
    {kNextItem, "Delete", "Eliminar"},
    {"ConvMenu", "BAS ASCII<->BAS (Token/Compress)", "BAS ASCII<->BAS (Token/Compr.)"},
    {kNextItem, "BAS (CR)<->BAS (CRLF)", "BAS (CR)<->BAS (CRLF)"},
    {kNextItem, "-", "-"},
    {kNextItem, "-> .BAS.DAT.BIN.TXT", "-> ORIGINAL"},
    {kNextItem, "-> CAS", "-> CAS"},
    {kNextItem, "-> WAV", "-> WAV"},
    {kNextItem, "-> Audio", "-> Audio"},
    {kNextItem, "-", "-"},
    {kNextItem, "CCC <-> PAK", "CCC <-> PAK"},
    {kNextItem, "-", "DSK <-> VDK"},
    {kNextItem, "DSK <-> VDK", kNoItem},
    {"ColumnsHeader", "NAME", "NOMBRE"},
    {kNextItem, "EXT", "EXT"},
    {kNextItem, "T", "T"},
    {kNextItem, "F", "F"},
    {kNextItem, "SE", "SE"},
    {kNextItem, "GR", "GR"},
    {kNextItem, "SIZE", "TAMAÑO"},
    {kNextItem, "USED", "USADOS"},
    {kNextItem, "DIFER", "DIFER"},
    {kNextItem, "EFFIC%", "EFIC%"},
    {kNextItem, "ATT", "AT"},
    {kNextItem, "CREATION DATE", "Fecha de Creación"},
    {kNextItem, "UPDATE", "Fecha de Modificación"},
    {kNextItem, "IGR", "GRI"},
    {kNextItem, "SLG", "SUG"},
    {kNextItem, "BLS", "BUS"},
    {kNextItem, "NCDE", "PEDC"},
    {kNextItem, "Granules Or Sectors secuence   ", "Secuencia de Granulos o Sectores   "},

    {"Label1", "Sector:", "Sector:"},
    {"Label2", "Track:", "Pista:"},
    {"Label3", "CoCo Directory:", "Directorio CoCo:"},
    {"Label4", "Pc Directory:", "Directorio PC:"},
    {"Label5", "Type:", "Tipo:"},
    {"Label6", "File:", "Archivo:"},
    {"Label7", "Basic:", "Basic:"},
    {"Label8", "Characters:", "Caracteres:"},
    {"Label9", "Zoom:", "Zoom:"},
    {"Label10", "Width:", "Ancho:"},
    {"SaveBtn", "Save", "Guardar"},
    {"UndoBtn", "Undo", "Reversar"},
    {"VerBorrados", "View # Deleted", "Ver # Borrados"},
    {"VerContinuaciones", "View # Continues", "Ver # Continuaciones"},

    {"Mensaje00", "The file: []¬Already exist, overwrite? or rename", "El archivo: []¬Ya existe, desea sobre escribirlo? o renombrelo"},
    {"Mensaje01", "Continue with the other files?", "Continuar con el resto de archivos?"},
    {"Mensaje02", "File: ", "Desea crear el archivo?: "},
    {"Mensaje03", " not exist, create?", "El archivo no existe"},
    {"Mensaje04", "If you select another file without saving first, you lose any changes, continue?", "Si selecciona otro archivo sin grabar primero, perderá los cambios, Continuar?"},
    {"Mensaje05", " Files", " Archivos"},
    {"Mensaje06", "Please enter some text in cell.", "Mensaje06=Por favor introduzca algún texto en la celda."},
    {"Mensaje07", "0=BASIC,1=BASIC data,2=Machine lenguage,3=Data text editor", "0=BASIC,1=BASIC datos,2=Lenguage de Maquina,3=Editor de textos"},
    {"Mensaje08", "B=Binary,A=AscII", "B=Binario,A=AscII"},
    {"Mensaje09", "Are you sure you want to delete the file: ", "Está Ud. seguro de querer eliminar el archivo: "},
    {"Mensaje10", "Are you sure you want to delete this files: ", "Está Ud. seguro de querer eliminar estos archivos: "},
    {"Mensaje11", "", ""},
    {"Mensaje12", "Files:", "Archivos:"},
    {"Mensaje13", " Deleted", "Borrados"},
    {"Mensaje14", "Free:", "Libre:"},
    {"Mensaje15", " FREE BYTES", " BYTES LIBRES"},
    {"Mensaje16", "Error!!!, No entry free in directory", "Error!!!, No hay entradas libres en el directorio"},
    {"Mensaje17", "Error!!!, No Sectors or granules free in this disk", "Error!!!, No hay sectores o granulos libres en este disco"},
    {"Mensaje18", "Error!!!, The file []¬will not fit on the disk¬[]¬¬Requested : [] Bytes, in Disk [] Bytes = [] Sectors¬Free           : [] Bytes = [] Sectors¬Insufficient: [] Bytes = [] Sectors", "Error!!!, El archivo []¬no cabe en el disco:¬[]¬¬Requerido : [] Bytes, En Disco [] Bytes = [] Sectores¬Libre         : [] Bytes = [] Sectores¬Faltan       : [] Bytes = [] Sectores"},
    {"Mensaje19", "", ""},
    {"Mensaje20", "", ""},
    {"Mensaje21", "", ""},
    {kComment, "Can create more Pattern separated by commas", "Puede crear mas separados por comas"},
    {"Mensaje22", "", ""},
    {"Mensaje23", "Press OK when you are done editing the file", "Al terminar de editar presione aceptar"},
    {"Mensaje24", "Name for the saved file: ", "Grabar con el nombre: "},
    {"Mensaje25", "Save as..", "Grabar como.."},
    {"Mensaje26", "Error in Destoken Comamnd, Position: ", "Error en Destoken Comando, Posición: "},
    {"Mensaje27", "Error in Destoken Function, Position: ", "Error en Destoken Función, Posición: "},
    {"Mensaje28", "Would you like to convert the file to ASCII first?", "Desea convertir el archivo a ASCII, primero?"},
    {"Mensaje29", "New name: ", "Nuevo nombre: "},
    {"Mensaje30", "Options", "Opciones"},
    {"Mensaje31", "Want to add to the CR LF at the end of existing lines", "Desea agregar LF a los CR existentes al final de las lineas"},
    {"Mensaje32", "Error in disk format,", "Error en el formato del disco,"},
    {"Mensaje33", "Number of tracks other than their byte check", "Cantidad de tracks diferentes de su byte de chequeo"},
    {"Mensaje34", "Number of sectors per track than their byte check", "Cantidad de sectores por tracks diferentes de su byte de chequeo"},
    {"Mensaje35", "Continues", "Cont."},
    {"Mensaje36", "Alternate Row Back Color:", "Color de las filas alternantes:"},
    {"Mensaje37", "Sector Error Color:", "Color para archivo con error en los sectores:"},
    {"Mensaje38", "Continue Dir Entry Color (DRAGON):", "Color para las continuaciones (DRAGON):"},
    {"Mensaje39", "", ""},
    {"Mensaje40", "To", "a"},

    {"DirPattern", "Disks CoCo & Dragon: *.DSK;*.VDK;*.OS9;*.VHD;*.CAS;*.WAV", "Discos CoCo y Dragon: *.DSK;*.VDK;*.OS9;*.VHD;*.CAS;*.WAV"},
    {kNextItem, "Disks CoCo: *.DSK;*.OS9;*.VHD;*.CAS;*.WAV", "Discos CoCo: *.DSK;*.OS9;*.VHD;*.CAS;*.WAV"},
    {kNextItem, "Disks Dragon: *.VDK;*.OS9;*.VHD;*.CAS;*.WAV", "Discos Dragon: *.VDK;*.OS9;*.VHD;*.CAS;*.WAV"},
    {kNextItem, "Files CoCo y Dragon: *.BAS;*.BIN;*.TXT;*.DAT", "Archivos CoCo y Dragon: *.BAS;*.BIN;*.TXT;*.DAT"},
    {kNextItem, "Disks & Files CoCo & Dragon: *.DSK;*.VDK;*.OS9;*.VHD;*.CAS;*.WAV;*.CCC;*.PAK;*.BAS;*.BIN;*.TXT;*.DAT", "Discos y archivos CoCo y Dragon: *.DSK;*.VDK;*.OS9;*.VHD;*.CAS;*.WAV;*.CCC;*.PAK;*.BAS;*.BIN;*.TXT;*.DAT"},
    {kNextItem, "All files: *.*", "Todos Los Archivos: *.*"},
    {"VerAsc", "Auto", "Auto"},
    {kNextItem, "Compressed", "Comprimido"},
    {kNextItem, "ASC CoCo", "ASC CoCo"},
    {"Anchos", "Auto", "Auto"},
    {kNextItem, "lines (13)", "lineas (13)"},
    {kNextItem, "lines (13 + 10)", "lineas (13 + 10)"},
    {kNextItem, "lines (0)", "lineas (0)"},
    {kNextItem, "All", "Todo"},
    {kNextItem, "32", "32"},
    {kNextItem, "256", "256"},

    {kComment, "--------------Audio Convert-----------", "--------------Audio Convert-----------"},
    {"Show", "Show Menu before convert?", "Mostrar este menú al convertir?"},
    {"Cancel", "Cancel", "Cancelar"},
    {"Ok", "Ok", "Aceptar"},
    {"Default", "Default", "Predeterminado"},
    {"Frequencies", "frequencies", "Frecuencias"},
    {"LabelZeros1200", "Zeros (0):", "Ceros (0):"},
    {"LabelOnes2400", "Ones (1):", "Unos (1):"},
    {"WAV", "WAV Format", "Formato WAV"},
    {"LabelSampleRate", "Sample Rate:", "Muestras X Seg:"},
    {"LabelBitsPerSample", "Bits per Sample:", "Bits X Muestra:"},
    {"LabelNumChannels", "Num Channels:", "Canales:"},
    {"LabelByteRate", "Byte Rate:", "Bytes X Seg:"},
    {"LabelBlockAlining", "Block Alining:", "Alineac/Bloque:"},
    {"LabelWavFormat", "WAV Format:", "Formato WAV:"},
    {"Silences", "Silences", "Silencios"},
    {"LabelIncrement", "Increment in Bytes :", "Incremento en Bytes :"},
    {"LabelSilenceBlock", "Before each block:", "Antes de cada bloque:"},
    {"LabelSilenceHeader", "After Header :", "Despúes de Cabezera:"},
    {"LabelSilenceStart", "At the beginning:", "Al comienzo:"},
    {"LabelSize", "Size Approx for 1 minute :", "Tamaño aprox para 1 minuto :"},
    {"LabelVolume", "Volume:", "Volumen:"},
    {"LabelOutput", "Output :", "Formato de Salida :"},
};
// clang-format on

using Lines = std::vector<std::string>;

std::string KeyLine(std::string_view key, std::string_view value) {
    if (key == kComment) return std::string(key).append(value);
    return std::string(key).append("=").append(value);
}

template <std::size_t Count>
void AddSettings(Lines& lines, const SettingRow (&rows)[Count]) {
    const std::string version = ProgramVersion();
    for (const SettingRow& row : rows) {
        lines.push_back(
            KeyLine(row.Key, row.Value == kVersion ? std::string_view(version) : row.Value));
    }
}

void AddLanguage(Lines& lines, std::string_view LanguageRow::*language) {
    for (const LanguageRow& row : kLanguages) {
        const std::string_view text = row.*language;
        if (text == kNoItem) continue;
        if (row.Key == kNextItem) {
            lines.back().append(",").append(text);
        } else {
            lines.push_back(KeyLine(row.Key, text));
        }
    }
}

}  // namespace

std::string DefaultSettingsText() {
    Lines lines;
    lines.emplace_back("[General]");
    AddSettings(lines, kGeneral);
    lines.emplace_back("[Audio Options]");
    AddSettings(lines, kAudioOptions);
    lines.emplace_back("[English]");
    AddLanguage(lines, &LanguageRow::English);
    lines.emplace_back("[Spanish]");
    AddLanguage(lines, &LanguageRow::Spanish);
    const std::string text = JoinText(lines, kLineMark);
    return Windows1252(ReplaceText(text, kLineMark, "\r\n"));
}

}  // namespace brindlemoor
