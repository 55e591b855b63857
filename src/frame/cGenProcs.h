/// The general procedures: settings files, jobs, files and folders, transformations, data-entry forms.
///
///     cGenProcs procs{library};
///     std::int16_t changes = 0;
///     const std::string editor =
///         procs.INIstringGet("C:\\Tavoru\\user.ini", "General", "Editor", "notepad.exe", true, &changes);
///
/// Every member can fail: it then reports to the error trail and raises the error under its own name
/// (procedure.h). Members that only pass on what a host object or the system raises do not list those errors.
/// An output argument that was set before a failure keeps its value.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/record_set.h"
#include "host/records.h"
#include "runtime/variant.h"

namespace t_genproc {

class Library;
class cInstHelpSettings;

class cGenProcs {
   public:
    explicit cGenProcs(Library& library);
    cGenProcs(const cGenProcs&) = delete;
    cGenProcs& operator=(const cGenProcs&) = delete;
    ~cGenProcs();

    /// A flag of the host's: True from creation on.
    bool ClassActive() const { return classActive_; }
    void ClassActive(bool active) { classActive_ = active; }

    // ---- Single keys of a settings file (frame/settings_file_access.cpp)
    //
    // `changes` counts successful writes. Error 6: it would pass 32767; the write has happened by then.

    /// The value of `sectionItem`, its first 199 characters. A missing key, and one that holds "NotFound",
    /// takes `defaultValu`: unless that is empty it is written into the file and given, and counts as one
    /// change. Where it cannot be written, the answer is empty and nothing is counted, unless `retainDefault`
    /// is set.
    std::string INIstringGet(const std::string& fileName, const std::string& sectionName,
                             const std::string& sectionItem, const std::string& defaultValu = {},
                             bool retainDefault = false, std::int16_t* changes = nullptr);

    /// Writes `valu`, creating file, section and key as needed. False: the file takes no change. Writing what
    /// the file holds already counts as a change too.
    bool INIstringSet(const std::string& fileName, const std::string& sectionName,
                      const std::string& sectionItem, const std::string& valu,
                      std::int16_t* changes = nullptr);

    // ---- Settings (settings/)

    /// Writes the settings, one group for each switch that is set, from the host's records into
    /// `prog.userINIpath` and `prog.progINIpath`; the two values of the host's own go into the latter
    /// whatever the switches say. `changes` counts the writes into the program-wide file only. A key that
    /// cannot be written is passed over. The layout stands in settings/user_settings.cpp.
    ///
    /// Error 91: a record or the form that a group needs is missing; what was written before it stays.
    void INISettingsSave(bool program, bool tavoruPath, bool preferences, bool dataSettings, bool LSPrefs,
                         bool recentJobs, const t_gencvf::ProgramState& prog,
                         const t_gencvf::JobItem* currentJob = nullptr,
                         const cInstHelpSettings* IHelp = nullptr,
                         const t_gencvf::GeneralPreferences* genPrefs = nullptr,
                         const t_gencvf::JobConfiguration* jobSettings = nullptr,
                         const t_gencvf::LeastSquaresOptions* LSOptPrefs = nullptr,
                         const ObjectPointer& mainForm = nullptr, std::int16_t* changes = nullptr);

    /// Retired: raises error 51 on every call.
    void RegSettingsSave(bool program, bool tavoruPath, bool preferences, bool dataSettings, bool LSPrefs,
                         bool recentJobs, const t_gencvf::ProgramState* prog = nullptr,
                         const t_gencvf::JobItem* currentJob = nullptr,
                         const cInstHelpSettings* IHelp = nullptr,
                         const t_gencvf::GeneralPreferences* genPrefs = nullptr,
                         const t_gencvf::JobConfiguration* jobSettings = nullptr,
                         const t_gencvf::LeastSquaresOptions* LSOptPrefs = nullptr,
                         const ObjectPointer& mainForm = nullptr);

    /// Remembers the job's name and extension as the last job of the user settings file. A job without a
    /// name, or a file that cannot be written, leaves the old one.
    void SaveCurrentJobName(const t_gencvf::JobItem& currentJob, const t_gencvf::ProgramState& prog);

    /// Sets `pJob.jobName` and `pJob.jobExtension` (without its dot) from the last job of the settings file;
    /// both become empty where it has none.
    void ReadCurrentJobName(t_gencvf::JobItem& pJob, const std::string& userINIpath);

    /// The folder for list files. `ListGrouping` 1: `dataPath` + "List\"; 2: `dataPath`; any other value, or
    /// a blank choice: `mainPath` + "List\". Below 2 a missing folder is made (errors 75, 76). Both paths
    /// have a "\" at their end.
    std::string SetListPath(std::int16_t ListGrouping, const std::string& mainPath,
                            const std::string& dataPath);

    /// `valu`, or `defaultVal` where that is Empty or Null.
    Variant SetDefaultIfNull(const Variant& valu, const Variant& defaultVal);

    /// Completes a job's data header, which is in edit, from the user's options: fields that are Null or
    /// Empty take them, and tolerances and standard deviations go through Utility::Normalise. Some switches
    /// take them in any case: those of weighting and output where the header is new, those of the saving of
    /// points where `LSmode` is set, and otherwise stay as they are. The fields stand in
    /// settings/least_squares_defaults.cpp. The edit is left to the caller.
    ///
    /// Errors 3265, 13, 6: a field is missing, or holds no number; the fields before it keep what they got.
    void CheckLSOptionDefaults(t_gencvf::RecordSet& dataHeader,
                               const t_gencvf::LeastSquaresOptions& LSOptPref, bool headerExists,
                               bool LSmode = false);

    // ---- Transformations, spheroids and geoid models (geodesy/)
    //
    // `DatumH` holds a datum, a comma and its spheroid in each element, `Spheroid` a spheroid, a blank and
    // its parameters in parentheses. Both count from element 1; element 0 is never read.

    /// Describes the current record of the host's table of transformations: the kind, the datums with their
    /// spheroids and the parameters, a line each, with CR LF between them. `fileMode` is the form for
    /// reports: with the description, and indented further. The layout stands in
    /// geodesy/transformation_details.cpp.
    ///
    /// Where both arrays are loaded, the spheroids of the datums that are printed are looked up, and
    /// `spheroidForDatumFROM` and `spheroidForDatumTO` take them (both that of the one datum of a
    /// zone-to-zone); otherwise these are printed. `copyright` takes the text that belongs under the report
    /// of a distortion grid, and is empty for other kinds.
    ///
    /// Error 3265: a field is missing; 94: a datum or a number is Null; 13, 6: a number, code or zone is
    /// none; 5: a datum of more than 10 characters, a number of more than 20 ahead of another on its line, or
    /// one of GetSpheroidForDatum.
    std::string TransformationDetails(t_gencvf::RecordSet& transTable, bool fileMode, bool spheroidOK,
                                      const std::vector<std::string>& Spheroid, bool datumHok,
                                      const std::vector<std::string>& DatumH,
                                      std::string* spheroidForDatumFROM = nullptr,
                                      std::string* spheroidForDatumTO = nullptr,
                                      std::string* copyright = nullptr);

    /// The spheroid of `datum`; sets `found`. Otherwise, where `found` is False: "PLANE" for "LOCAL",
    /// "(not found)" for any other. A `found` that is True on entry and no match give an empty text.
    ///
    /// Error 5: an element that is read has no comma, or no parenthesis with a character ahead of it.
    std::string GetSpheroidForDatum(const std::string& datum, const std::vector<std::string>& DatumH,
                                    const std::vector<std::string>& Spheroid, bool& found);

    /// Whether the job's geoid model is of the kind, and the options allow its use. A TIN model is of no use
    /// where `plotGeographic` is set.
    bool GeoidTINoptionsOK(const t_gencvf::JobConfiguration& jobCfg, const t_gencvf::JobGeneral& jobGeneral,
                           bool plotGeographic = false);
    bool GeoidGRIDoptionsOK(const t_gencvf::JobConfiguration& jobCfg);
    /// Whether geoid heights are in use, and a grid model is loaded or a TIN model available.
    bool GeoidModelReady(const t_gencvf::JobConfiguration& jobCfg, const t_gencvf::JobGeneral& jobGeneral,
                         bool plotGeographic = false);
    /// The options, and the model's data loaded.
    bool GeoidGRIDreadyOK(const t_gencvf::JobConfiguration& jobCfg, const t_gencvf::JobGeneral& jobGeneral);
    bool GeoidTINreadyOK(const t_gencvf::JobConfiguration& jobCfg, const t_gencvf::JobGeneral& jobGeneral,
                         bool plotGeographic = false);

    // ---- Data-entry forms (forms/)
    //
    // A form's `Controls` are counted from 0; positions in the tab order, `Left` and `Width` are 16-bit whole
    // numbers (error 6). The moves give True where they have moved the focus.

    /// Moves to the next enabled, visible text box below or above, in the column of the active control: the
    /// one `stepVal` tab positions on, or that far again. Boxes are in one column where their left or right
    /// edges agree or they overlap. Without a step the position is that of the active box, as a rule itself.
    bool TextBoxDownAdvance(const ObjectPointer& currentForm, std::int16_t stepVal = 0);
    bool TextBoxUpAdvance(const ObjectPointer& currentForm, std::int16_t stepVal = 0);
    /// Moves to the next enabled, visible text box in the tab order.
    bool TextBoxEnterAdvance(const ObjectPointer& currentForm);

    /// Trims the text of the box and selects it, so that typing replaces it. A blank box stays as it is.
    void SelectText(const ObjectPointer& TextBox);

    /// Empties the text boxes that hold only blanks, disabled ones too.
    void TrimTextBoxes(const ObjectPointer& currentForm);

    /// The number at the start of `txtField`, 0 where there is none, with `defaultDecimals` decimals, or with
    /// `expand` as many as characters follow its first point, where these are more. Halves are rounded away
    /// from zero, by the decimal digits. Without decimals the point stays: "12.".
    ///
    /// Error 5: a negative `defaultDecimals`; 6: a number beyond the range of a double.
    Variant SetNumericField(const std::string& txtField, std::int16_t defaultDecimals, bool expand);

    // ---- Prompts and help topics (forms/window_prompt.cpp, forms/help_topics.cpp)

    /// Shows a prompt in the panel `pnlPrompt` of the main form, in place of `pnlDatumV` and `pnlProjection`,
    /// with `yellowBG` in the colour of tooltips; a blank `display` empties it, makes it light grey and shows
    /// the two again. While `pnlPrompt.Tag` starts with a number other than 0, only its caption changes. The
    /// host's windows process their messages once, so that the prompt is painted.
    void WindowPrompt(const std::string& display, const ObjectPointer& mainForm, bool yellowBG = false);

    /// Shows the topic of the window's `HelpContextID` in Application::helpFile. `progPath` has no effect.
    void HelpActiveForm(const ObjectPointer& currentForm, const std::string& progPath);

    /// Shows a topic of the help, or the table of contents for the topics 1, 7100 and 7110. An empty
    /// `helpFile` takes, and stands for, Application::helpFile. `hWnd` has no effect.
    void ShowTopicID(std::int32_t topicID, std::int32_t hWnd, std::string* helpFile = nullptr);

    // ---- Waiting (forms/waiting.cpp)

    /// As GenUtil::DoEventsTimer.
    void DoEventsTimer(float& DoEventsStart, float interval);

    /// Waits, and lets the host's windows process their messages meanwhile, at least once. The tick count is
    /// taken as a signed number: error 6 where its sum with `MilliSeconds` is above 2147483647; a wait that
    /// sees it turn negative ends.
    void Delay(std::int32_t MilliSeconds);

    // ---- Grids, pages and lists (forms/pages_and_lists.cpp)

    /// The width of a grid's columns and twice that of a divider, which a column of its own tells while it is
    /// there. Uses `FormatString`, `Cols`, `Col` and `CellWidth`; leaves `Cols` one lower than it was with
    /// that column, and `Col` at the last. `getDividerWidth` has no effect. Error 6: a divider beyond 16
    /// bits, or a sum beyond 32; 5: the grid has taken its `FormatString` away.
    std::int32_t ColumnsWidth(const ObjectPointer& flexGrid, bool getDividerWidth);

    /// Prints the text with its left upper corner there, in the units of the printer. `omit`: only goes
    /// there.
    void PrinterPrintAt(const ObjectPointer& Printer, const std::string& valu, std::int32_t X, std::int32_t Y,
                        bool omit = false);

    /// Whether a page begins with the header records: `rStart` takes 0 for those and 1 without. They stand on
    /// the first page, or with `headerRecEvery` on each.
    void CheckPageHeader(std::int16_t headerRecs, bool headerRecEvery, std::int32_t pageNo,
                         std::int16_t& rStart);

    /// Reads the `name` of each control of a form, of each window of Host::loadedForms.
    void ListControls(const ObjectPointer& currentForm);
    void ListLoadedForms();

    // ---- Texts and lists of texts (files/text_utilities.cpp, files/sorting.cpp)

    /// A path that fits the label: it loses its middle folder, for which "..." stands, as long as it is wider
    /// than the label less 50, and has two backslashes. A text that has 90 to spare with a blank behind it
    /// keeps that; any other loses the blanks at its ends. The form, whose units these are, measures
    /// (`TextWidth`) and keeps the font of the label.
    std::string PathAbbreviate(const std::string& fullFileName, const ObjectPointer& nameLabel,
                               const ObjectPointer& currentForm);

    /// Sort the elements from 1 on, ascending: texts by their capitals, code by code. An array of exactly two
    /// numbers stays as it is. Texts that differ in case alone come in the order that a Shell sort with the
    /// gaps 2^k - 1 gives them. Error 6: more than 16384 elements; nothing is sorted then.
    void Shell_Sort(std::vector<std::string>& a);
    void ShellSort(std::vector<std::int32_t>& a);

    /// `alphaID`, "/" and as much of `description` as fits; `alphaID` alone where both are equal, blanks
    /// around them aside, or there is no room for more; `description` alone without `alphasExist`. With
    /// blanks behind it up to `fieldLength` characters. Error 5: a text that stands alone is longer than
    /// that; 6: a `fieldLength` of -32768.
    std::string CombineAlphaDesc(const std::string& alphaID, const std::string& description,
                                 std::int16_t fieldLength, bool alphasExist);

    // ---- Files (files/file_helpers.cpp)
    //
    // File numbers are those of Library::files(). Positions of characters start at 1.

    /// Opens for line output, creating the file or cutting it to nothing. True, or an error of NumberedFiles.
    bool OpenFileForOutput(std::int16_t fileNo, const std::string& fileName);

    /// Opens for line input. False, after a message, where there is no such file (a folder is none).
    bool OpenFileForInput(std::int16_t fileNo, const std::string& fileName);

    /// Closes the file and then sets `fileNumber` to 0. The number is free even where closing fails.
    void CloseFile(std::int16_t& fileNumber);

    /// Whether a file of that name exists; a folder is none. `fiSize` takes its length in bytes, 2147483647
    /// where it is longer. With "?" or "*" in the name: whether any normal file matches, no hidden or system
    /// one, and `fiSize` takes their number; a folder that cannot be searched holds none.
    bool FileExist(const std::string& fiName, std::int32_t* fiSize = nullptr);

    /// Whether the file exists and is not empty, or any file matches.
    bool FileExistsNonZero(const std::string& fiName);

    /// Splits a path: "C:\Jobs\A\file.txt" into "file.txt", "\Jobs\A" and "C:".
    void FileNameDetails(const std::string& fullPathName, std::string& fiName, std::string* fiPath = nullptr,
                         std::string* fiDrv = nullptr);

    /// The text from the last dot on, or behind it where `trimDot` is set; `fiName` takes what stands ahead
    /// of the dot. Blanks around `filesName` and one "\" at its end do not count. A name that only starts
    /// with a dot, and one whose extension is empty, are kept whole in `fiName`. Both arguments may be the
    /// same text.
    std::string FileNameExtn(const std::string& filesName, std::string* fiName = nullptr,
                             bool trimDot = false);

    /// Makes every missing folder of `destPath`, which starts with a drive, and leaves the deepest one
    /// reached current. `pathOK` takes each part that was reached, without its trailing "\"; it keeps its
    /// text where none was. False: the rest cannot be made, which a message tells; with `subdueError` only
    /// `errNum` does.
    bool CreatePath(std::string destPath, bool subdueError = false, std::int32_t* errNum = nullptr,
                    std::string* pathOK = nullptr);

    // ---- The recent-jobs menu (files/recent_jobs.cpp)
    //
    // The captions of the main form's five menu entries `mnuFileRecentJobs` (0 to 4) are the list: "&1  " and
    // the path of the most recent job, down to "&5  "; an empty entry has no path behind its prefix,
    // or the caption "". An index outside raises what the form raises for it, 340 as a rule.

    /// Puts the job at the top and remembers it as the last job, unless it is on top already.
    void RecentJobsNewItem(const t_gencvf::JobItem& jobItem, const ObjectPointer& mainForm,
                           const t_gencvf::ProgramState& prog);

    /// Moves entry `Index` to the top.
    void RecentJobsReOrder(std::int16_t Index, const ObjectPointer& mainForm);

    /// Takes entry `Index` out and closes the gap. An index above 4 empties entry 4.
    void RecentJobsClearDeleted(std::int16_t Index, const ObjectPointer& mainForm);

    /// Shows the entries that hold a job and hides the others.
    void RecentJobsValidate(const ObjectPointer& mainForm);

   protected:
    void Class_Initialize();
    void Class_Terminate() noexcept;

   private:
    Library& library_;
    bool classActive_ = false;
};

}  // namespace t_genproc
