// The fields of the tools and reference windows. Those of the main screen, the terminal and the status
// monitor are told in their designs: one of them belongs to the list of ports, whose rows name their devices.
#include <array>

#include "help/field_help.h"

namespace kavr6 {
namespace {

constexpr FieldMeaning kCalculator[] = {
    {"VE", "Speed from which the motor is to stop.", "rev/sec"},
    {"DE", "How fast the speed goes down.", "rev/s/s"},
    {"MR", "Steps for one turn of the motor.", "steps/rev"},
};

constexpr FieldMeaning kWizard[] = {
    {"ParamSlider", "Move it until the motor does what the text above asks for."},
    {"NextDone", "Keep the value and go on to the next step."},
};

constexpr FieldMeaning kHelpScreen[] = {
    {"btnIndex", "All pages of the help."},
    {"btnBack", "The page before."},
};

constexpr FieldMeaning kCompare[] = {
    {"chkShowEqual", "Show the settings that are the same too, and those that are not stored there."},
    {"Copy", "Copy the table, to be pasted into another program."},
    {"TakeFromDrive", "Upload: the settings of the drive replace those on the screen."},
    {"TakeFromFile", "Open the file: its settings replace those on the screen."},
    {"Download", "Download: the settings on the screen replace those of the drive."},
};

constexpr std::array kWindows{
    WindowMeanings{"Calculator", kCalculator},
    WindowMeanings{"Harmonizer", kWizard},
    WindowMeanings{"HelpScreen", kHelpScreen},
    WindowMeanings{"CompareWindow", kCompare},
};

}  // namespace

std::span<const WindowMeanings> ToolMeanings() { return kWindows; }

}  // namespace kavr6
