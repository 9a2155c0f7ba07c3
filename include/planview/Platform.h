// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <planview/Export.h>
#include <planview/Variant.h>

namespace planview {

/// The buttons of a message box.
enum class MessageButtons { Ok, OkCancel, YesNo, YesNoCancel };
/// The picture beside its text.
enum class MessageIcon { None, Information, Question, Exclamation, Error };
/// The button that was pressed.
enum class MessageAnswer { Ok, Cancel, Yes, No };

/// What a message box says and offers.
struct MessageBoxRequest {
    std::string text;                             ///< UTF-8, shown verbatim; may have several lines
    std::string title;                            ///< of the window; empty for the desktop's own
    MessageButtons buttons = MessageButtons::Ok;  ///< which can be pressed
    MessageIcon icon = MessageIcon::None;         ///< beside the text
    /// The button that Return presses; one of `buttons`.
    MessageAnswer defaultAnswer = MessageAnswer::Ok;
};

/// Asks or tells the user something and waits for the answer.
class PLANVIEW_EXPORT MessageBoxes {
public:
    virtual ~MessageBoxes() = default;
    /// Returns the pressed button; for a window that was closed Cancel, without such a button No, else Ok.
    virtual MessageAnswer Show(const MessageBoxRequest& request) = 0;
};

/// A form of the control: its state and behaviour without its window. The desktop finds the window by `Name()`.
class PLANVIEW_EXPORT Form {
public:
    virtual ~Form() = default;
    /// Which form it is ("frmGrid"); the same for all of its kind.
    [[nodiscard]] virtual std::string_view Name() const noexcept = 0;
    /// The title of its window.
    [[nodiscard]] virtual std::string_view Caption() const noexcept = 0;
};

/// Gives forms their windows. A form may be shown while it is not loaded; showing loads it.
class PLANVIEW_EXPORT Forms {
public:
    virtual ~Forms() = default;
    /// Makes the window ready without showing it.
    virtual void Load(Form& form) = 0;
    /// Returns when the user has closed or hidden the window.
    virtual void ShowModal(Form& form) = 0;
    /// Ends ShowModal(); the window stays loaded.
    virtual void Hide(Form& form) = 0;
    /// Ends the window; the form object itself stays.
    virtual void Unload(Form& form) = 0;
};

/// What is on the clipboard, in the two forms that spreadsheets exchange. Either may be empty.
struct ClipboardContents {
    std::string text;  ///< UTF-8; cells parted by tabs, rows by line ends
    std::string html;  ///< UTF-8, with one table
};

/// The clipboard that the control shares with other programs.
class PLANVIEW_EXPORT Clipboard {
public:
    virtual ~Clipboard() = default;
    /// What is there now, both empty for neither.
    [[nodiscard]] virtual ClipboardContents Get() = 0;
    /// Replaces what is there.
    virtual void Set(const ClipboardContents& contents) = 0;
};

/// Sizes in bytes.
struct MemoryStatus {
    std::int64_t totalPhysical = 0;      ///< of the machine
    std::int64_t totalPageFile = 0;      ///< that programs may use altogether, swap included
    std::int64_t availablePageFile = 0;  ///< of these, still free
};

/// What the operating system says of itself.
class PLANVIEW_EXPORT SystemInformation {
public:
    virtual ~SystemInformation() = default;
    /// No value when the system does not tell.
    [[nodiscard]] virtual std::optional<MemoryStatus> Memory() const = 0;
    /// The platform identifier: 0, 1 and 2 are the three that the trace knows by name, any other number is one it does
    /// not know. No value when the query fails.
    [[nodiscard]] virtual std::optional<int> PlatformId() const = 0;
    /// The folder for the trace log, UTF-8, without a separator at its end. Created on demand; empty when there is
    /// none.
    [[nodiscard]] virtual std::string LogFolder() const = 0;
    /// The decimal mark of the user's regional settings, "." or ",".
    [[nodiscard]] virtual char DecimalMark() const = 0;
};

/// A colour; each part from 0 to 255.
struct Rgb {
    std::uint8_t red = 0;    ///< 0 .. 255
    std::uint8_t green = 0;  ///< 0 .. 255
    std::uint8_t blue = 0;   ///< 0 .. 255
    /// Whether all parts are equal.
    friend bool operator==(const Rgb&, const Rgb&) = default;
};

/// A colour that a view has by itself, from its theme and settings.
enum class ViewColor {
    Base,        ///< of an empty view
    Background,  ///< of its cells
    Text,        ///< of its cells
    GridLines    ///< between its cells
};

/// One entry of a popup menu. Captions are shown verbatim: no character is a mnemonic. A desktop may choose letters.
struct PopupEntry {
    std::string name;           ///< what Popups::Choose() answers; empty for separators and submenus
    std::string caption;        ///< of any length
    std::string shortcut;       ///< shown beside the caption ("Ctrl+C"), not listened to
    bool separator = false;     ///< a line between entries; nothing else of it counts
    bool enabled = true;        ///< can be chosen
    bool checked = false;       ///< shown with a check mark
    std::optional<Rgb> swatch;  ///< shown before the caption
    /// Shown before the caption: the colour of the view that the popup belongs to.
    std::optional<ViewColor> viewColor = {};
    std::vector<PopupEntry> entries;  ///< those of a submenu
};

/// A popup menu as it opens.
struct PopupMenu {
    std::string caption;              ///< not shown; for screen readers
    std::vector<PopupEntry> entries;  ///< from top to bottom
};

/// Where a popup opens. While a dialog is open, both mean: below what has the focus in it. `Mouse` means the mouse, or
/// what is selected in the chart where a key pressed there has asked for the popup; `CurrentCell` means the selected
/// node while the macro tree has the focus.
enum class PopupPlace { Mouse, CurrentCell };

/// Shows popup menus.
class PLANVIEW_EXPORT Popups {
public:
    virtual ~Popups() = default;
    /// Waits for the user. Returns the name of the chosen entry, which is an enabled one, or the empty text when the
    /// popup was closed without a choice or its control has ended meanwhile.
    [[nodiscard]] virtual std::string Choose(const PopupMenu& menu, PopupPlace place) = 0;
};

/// What a file dialog asks for. Texts are UTF-8.
struct FileDialogRequest {
    std::string title;       ///< of the window
    std::string folder;      ///< where it opens; empty: where the user last was, or the home folder
    std::string fileName;    ///< the proposed name, without a folder; may be empty
    std::string filterName;  ///< what the files are called, such as "Excel workbook"
    /// Without the dot ("xlsx"). The first is added to a name to save to that the user gave none of them.
    std::vector<std::string> extensions;
};

/// Lets the user choose a file.
class PLANVIEW_EXPORT FileDialogs {
public:
    virtual ~FileDialogs() = default;
    /// A full path to write to, empty when the user cancelled. Has asked before it answers a file that exists already.
    [[nodiscard]] virtual std::string Save(const FileDialogRequest& request) = 0;
    /// The full path of a file that exists, empty when the user cancelled.
    [[nodiscard]] virtual std::string Open(const FileDialogRequest& request) = 0;
};

/// Makes objects of other programs by the identifier under which they are known ("Excel.Application").
class PLANVIEW_EXPORT ObjectFactory {
public:
    virtual ~ObjectFactory() = default;
    /// A new object; a null reference where the identifier is not known. What making it throws goes to the caller.
    [[nodiscard]] virtual ObjectRef Create(std::string_view programmaticIdentifier) = 0;
};

/// Shows how far a long operation is. Operations do not nest.
class PLANVIEW_EXPORT Progress {
public:
    virtual ~Progress() = default;
    /// `steps` is at least 1. An operation that ends soon need not be shown at all.
    virtual void Begin(std::string_view title, int steps) = 0;
    /// `done` of the steps are done. False when the user wants the operation to stop; then it should, and call End().
    [[nodiscard]] virtual bool Advance(int done) = 0;
    /// The operation has ended, done or not.
    virtual void End() noexcept = 0;
};

/// What a host puts in the place of the desktop's pieces, each by its name: `{.clipboard = &mine}`. Later versions may
/// have more of them.
///
/// A null piece stays the control's own. PlanViewWidget has those of Qt. PlanView has some without a screen: message
/// boxes answer with their default button, forms, popups and progress are never shown, file dialogs are cancelled, the
/// clipboard is the control's alone, no object is known, and the system information is that of the operating system,
/// with the log folder "planview" in the user's state folder (`XDG_STATE_HOME`, else "~/.local/state").
///
/// The control deletes none of the objects: they must outlive it. It calls them on its own thread only.
struct Platform {
    MessageBoxes* messageBoxes = nullptr;  ///< questions and messages
    Forms* forms = nullptr;                ///< the dialogs and the trace window
    Clipboard* clipboard = nullptr;        ///< copy and paste
    SystemInformation* system = nullptr;   ///< what the trace says of the machine, and where its log goes
    Popups* popups = nullptr;              ///< the popup menus
    FileDialogs* fileDialogs = nullptr;    ///< choosing a workbook
    ObjectFactory* objects = nullptr;      ///< the spreadsheet application
    Progress* progress = nullptr;          ///< of long operations
};

}  // namespace planview
