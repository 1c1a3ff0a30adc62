// Which page of the help answers which question.
#pragma once

#include <array>
#include <string_view>

#include "platform/desktop.h"

namespace kavr6 {

inline constexpr std::string_view kMakerAddress = "https://www.velmardrives.example/";

/// A button, hot spot or menu command that shows a page; behind the page perhaps "#" and a place on it.
struct HelpCaller {
  std::string_view window;
  std::string_view control;
  std::string_view page;
};

/// All but HSdomelabel of the main screen, whose page goes by the drive model.
inline constexpr std::array kHelpCallers{
    HelpCaller{"MainForm", "MenuContents", "index.html"},
    HelpCaller{"MainForm", "menuContactUs", "contact us.html"},
    HelpCaller{"MainForm", "menuWebSite", "website.html"},
    HelpCaller{"MainForm", "HSACPower", "ConnectingACPower.html"},
    HelpCaller{"MainForm", "HSencoder", "ConnectingEncoder.html"},
    HelpCaller{"MainForm", "HSinout1", "Connecting_IO_to_InOut1.html"},
    HelpCaller{"MainForm", "HSinout2", "Connecting_IO_to_InOut2.html"},
    HelpCaller{"MainForm", "HSled", "ErrorCodes.html"},
    HelpCaller{"MainForm", "HSmotor", "Connecting_the_Motor.html"},
    HelpCaller{"MainForm", "HSregen", "regen.html"},
    HelpCaller{"MainForm", "HSrs485", "Hardware_RS485.html"},
    HelpCaller{"MotorDialog", "Help", "ConfigSoftware_Motor.html"},
    HelpCaller{"MotorDialog", "Wiring", "Connecting_the_Motor.html"},
    HelpCaller{"EditMotor", "Help", "ConfigSoftware_Motor.html#DefineMotor"},
    HelpCaller{"IOdialog", "Help", "ConfigSoftware_InputsOutputs.html"},
    HelpCaller{"IOdialog", "Wiring", "Connecting_IO_to_InOut1.html"},
    HelpCaller{"EncoderDialog", "Help", "ConnectingEncoder.html"},
    HelpCaller{"PulseDirDialog", "Help", "DigitalPosn.html"},
    HelpCaller{"VelocityDialog", "Help", "velocity.html"},
    HelpCaller{"AdvancedSettings", "Help", "velocity.html#AdvancedAnalog"},
    HelpCaller{"RegenDialog", "Help", "regen.html"},
    HelpCaller{"VTLdialog", "Help", "VTLdialog.html"},
};

/// The pages of the drive label: models that differ by their supply voltage alone share one.
inline constexpr std::array<std::string_view, 6> kOverviewPages{"Overview_Bx.html", "Overview_Wy.html",
                                                                "Overview_Zu.html", "Overview_Bx.html",
                                                                "Overview_Wy.html", "Overview_Zu.html"};

/// What F1 shows in a window whose Help button shows no page, and in the places that Desktop names.
struct HelpKeyPage {
  std::string_view where;
  std::string_view page;
};

inline constexpr std::array kHelpKeyPages{
    HelpKeyPage{"MotionMenu", "motion.html"},
    HelpKeyPage{"EventList", "summary.html#bottom"},
    HelpKeyPage{"CompareWindow", "compare.html"},
    HelpKeyPage{"Harmonizer", "smoothing.html"},
    HelpKeyPage{"ExecStatus", "status_monitor.html"},
    HelpKeyPage{"AlarmHistory", "alarms.html"},
    HelpKeyPage{"ServoFault", "alarms.html"},
    HelpKeyPage{"SelfTest", "self_test.html"},
    HelpKeyPage{"VTLterm", "terminal.html"},
    HelpKeyPage{"Summary", "text_language.html"},
    HelpKeyPage{"TEQhelp", "text_language.html"},
    HelpKeyPage{"Calculator", "text_language.html"},
    HelpKeyPage{"EFcodes", "codes.html"},
    HelpKeyPage{"LimCodes", "codes.html"},
    HelpKeyPage{"IOcodes", "codes.html"},
    HelpKeyPage{"RScodes", "codes.html"},
    HelpKeyPage{"MRcodes", "codes.html"},
    HelpKeyPage{"BRcodes", "codes.html"},
    HelpKeyPage{"ControlModes", "codes.html"},
    HelpKeyPage{"DefCodes", "codes.html"},
    HelpKeyPage{Desktop::kInBox, "messages.html"},
    HelpKeyPage{Desktop::kInFileDialog, "configuration_files.html"},
    HelpKeyPage{Desktop::kInPrintDialog, "report.html"},
};

/// The page that a control shows; empty where none is told.
std::string_view CallersPage(std::string_view window, std::string_view control);
/// The page that F1 shows there; the index where no other is told.
std::string_view HelpKeyPageOf(std::string_view where);

}  // namespace kavr6
