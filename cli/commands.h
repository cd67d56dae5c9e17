// The subcommands of the tessaron command. Each adds itself to the application; a failing
// command raises, and main prints one line and exits non-zero.
#pragma once

#include <CLI/CLI.hpp>

namespace tessaron::cli {

// Options every command sees.
struct GlobalOptions {
  std::string transcript;  // --transcript FILE: the message transcript of the run (DebugLogPath)
  bool lenient = false;    // --lenient: the embedded processor answers what QuickBooks would refuse
};

void AddCompanyCommand(CLI::App& app);
void AddVersionCommand(CLI::App& app);
void AddHostCommand(CLI::App& app, const GlobalOptions& global);
void AddSendCommand(CLI::App& app, const GlobalOptions& global);
void AddDemoCommand(CLI::App& app, const GlobalOptions& global);
void AddListCommand(CLI::App& app, const GlobalOptions& global);
// `show KIND REFNUMBER`: one document (an invoice, a bill, ...) as a person reads it.
void AddShowCommand(CLI::App& app, const GlobalOptions& global);
// `report list` and `report run`.
void AddReportCommand(CLI::App& app, const GlobalOptions& global);
void AddFieldsCommand(CLI::App& app, const GlobalOptions& global);
void AddEventCommand(CLI::App& app);  // event parse FILE
// `company show`, under the `company` command.
void AddCompanyShowCommand(CLI::App& company, const GlobalOptions& global);

}  // namespace tessaron::cli
