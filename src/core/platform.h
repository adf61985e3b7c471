#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "core/picture.h"

namespace brindlemoor {

/// The buttons of a message box, and the one that was pressed.
enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel };
enum class Answer { Ok, Cancel, Yes, No };
enum class MessageIcon { None, Question, Exclamation, Critical };

/// One entry of the drive list: the path that it leads to, and what the list shows.
struct DriveEntry {
    std::string Path;
    std::string Label;
};

/// Bit of `FileQuestion::Flags`: the dialog asks before a file is overwritten.
inline constexpr int kAskBeforeOverwriting = 2;

/// What a file dialog is to ask for.
struct FileQuestion {
    bool Save = false;   ///< else a file to open, which must exist
    std::string Folder;  ///< where it starts
    std::string Name;    ///< what stands in its name field
    std::string DefaultExt;
    std::string Title;
    std::string Filter;   ///< description, "|", patterns separated by ";", "|", description ...
    int FilterIndex = 1;  ///< from 1; becomes the one that was chosen
    int Flags = 0;
};

/// What the program asks of its surroundings. Every entry stands ready with an answer that harms
/// nothing (the first button that declines, an empty text), so that the logic runs without a
/// window; the window shell and the test script put their own in.
struct PlatformTable {
    /// Shows a modal message box and returns the button pressed. Texts are Windows-1252, their
    /// line breaks CR LF.
    std::function<Answer(const std::string& text, const std::string& title, Buttons buttons,
                         MessageIcon icon)>
        ShowMessage;

    /// Asks for a line of text; empty when the user gave up.
    std::function<std::string(const std::string& prompt, const std::string& title,
                              const std::string& suggestion)>
        AskText;

    /// Shows the system's file dialog and returns the whole path chosen; empty when the user gave
    /// up.
    std::function<std::string(FileQuestion& question)> FileDialog;

    /// Shows the system's colour chooser, standing on `colour` (0x00BBGGRR), and returns the colour
    /// chosen; the one that it stood on when the user gave up.
    std::function<std::int32_t(std::int32_t colour)> ChooseColour;

    /// Shows the window of that name, and returns when it was closed.
    std::function<void(const std::string& window)> ShowModal;

    /// Shows the window of that name beside the main window, and returns at once. One that stands
    /// open already shows its record as it is now, and comes to the front.
    std::function<void(const std::string& window)> ShowWindow;

    /// Shows the popup menu of that name of the main window at the pointer, runs the click routine
    /// of the item chosen, and returns when the menu is gone.
    std::function<void(const std::string& menu)> PopupMenu;

    /// Draws a line of text into a picture, in the fixed-pitch font of the window.
    std::function<void(Picture& picture, const TextLine& line)> DrawText;

    /// The bytes of a picture file that holds the picture, as paint programs read it.
    std::function<std::string(const Picture& picture)> SavePicture;

    /// Makes `picture` the picture in the bytes of a picture file of any usual kind. False, with
    /// `picture` as it was, when there is none in them.
    std::function<bool(const std::string& bytes, Picture& picture)> LoadPicture;

    /// Opens a page of the web in the user's browser. False when that is not possible.
    std::function<bool(const std::string& address)> OpenWebPage;

    /// True when a program is there to be started: a path, or a name that the system looks for.
    std::function<bool(const std::string& program)> HasProgram;

    /// Starts a program with its arguments, without waiting. Each argument arrives byte for byte;
    /// no shell sees it. False when it cannot be started.
    std::function<bool(const std::string& program, const std::vector<std::string>& arguments)>
        StartProgram;

    /// The folder that the running program lies in; empty where that is not known.
    std::function<std::string()> ProgramFolder;

    /// The drives of the PC, or what stands for them.
    std::function<std::vector<DriveEntry>()> ListDrives;

    /// Shows the pointer of a program at work, or puts the usual one back.
    std::function<void(bool busy)> ShowBusy;

    /// Closes the main window, as its own close button does.
    std::function<void()> CloseMainWindow;

    /// Ends the program at once; the window's closing routine does not run.
    std::function<void()> EndProgram;
};

extern PlatformTable Platform;

/// A table whose entries all give the answer that harms nothing.
PlatformTable SilentPlatform();

}  // namespace brindlemoor
