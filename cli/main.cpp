// tessaron: the command of the library. Run `tessaron --help` for the subcommands.
#include <iostream>

#include "cli/commands.h"
#include "tessaron/platform/error.h"

int main(int argc, char** argv) {
  CLI::App app{"tessaron: work with QuickBooks company files through the Tessaron library", "tessaron"};
  app.require_subcommand(1);
  tessaron::cli::GlobalOptions global;
  app.add_option("--transcript", global.transcript, "Keep the transcript of every qbXML message in FILE")
      ->option_text("FILE");
  app.add_flag("--lenient", global.lenient,
               "Let the embedded processor answer messages that QuickBooks would refuse (not valid against the "
               "qbXML schema, or using what their version or edition lacks); by default it refuses them");
  // Kept so that existing scripts still run: refusing is the default now.
  app.add_flag("--strict")->description(
      "No effect: the embedded processor refuses what QuickBooks refuses by default (kept for older scripts; "
      "see --lenient)");
  tessaron::cli::AddCompanyCommand(app);
  tessaron::cli::AddCompanyShowCommand(*app.get_subcommand("company"), global);
  tessaron::cli::AddVersionCommand(app);
  tessaron::cli::AddHostCommand(app, global);
  tessaron::cli::AddSendCommand(app, global);
  tessaron::cli::AddDemoCommand(app, global);
  tessaron::cli::AddListCommand(app, global);
  tessaron::cli::AddShowCommand(app, global);
  tessaron::cli::AddReportCommand(app, global);
  tessaron::cli::AddFieldsCommand(app, global);
  tessaron::cli::AddEventCommand(app);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& e) {
    return app.exit(e);
  } catch (const tessaron::Error& e) {
    char number[16];
    std::snprintf(number, sizeof number, "0x%08X", static_cast<unsigned>(e.Number()));
    std::cerr << "tessaron: " << e.Description() << " (" << number << ")\n";
    return 1;
  } catch (const std::exception& e) {
    std::cerr << "tessaron: " << e.what() << "\n";
    return 1;
  }
  return 0;
}
