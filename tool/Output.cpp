#include "Output.h"

#include "Files.h"

namespace VelkTool {

bool Output::accepts(Session& session, const std::string& input, const std::string& text) const {
  std::string refusal;
  if (inPlace_ && input == "-") refusal = "standard input cannot be changed in place; -o names a file";
  if (inPlace_ && isPipe(input)) refusal = "a pipe cannot be changed in place; -o names a file";
  if (!inPlace_ && isSameFile(input, file_)) refusal = "would be written over; --in-place does that";
  if (!refusal.empty()) {
    session.complain(input, refusal);
  } else if (isSameFile(text, inPlace_ ? input : file_)) {
    session.complain(text, "would be written over");
  } else {
    return true;
  }
  session.worsen(Exit::Usage);
  return false;
}

void Output::write(Session& session, const std::string& input, const Velk::ImageFile& image,
                   std::string_view report) const {
  const QByteArray contents = Velk::encodeImage(image);
  if (backup_ && !copyFile(session, input, input + ".bak")) return;
  if (!writeFile(session, inPlace_ ? input : file_, contents)) return;
  if (inPlace_ || !isStream(file_)) return session.write(report);
  while (!report.empty()) {
    const std::string_view line = report.substr(0, report.find('\n'));
    session.complain(input, line);
    report.remove_prefix(line.size() + 1);
  }
}

std::shared_ptr<const Output> addOutput(CLI::App& command) {
  const auto output = std::make_shared<Output>();
  CLI::Option_group* const where = command.add_option_group("Output", "Where the changed image goes");
  where
      ->add_option("-o,--output", output->file_,
                   "The file to be written, in the format of the input; - is standard output")
      ->type_name("OUT");
  CLI::Option* const inPlace = where->add_flag("--in-place", output->inPlace_, "Replace FILE");
  where->require_option(1);
  command.add_flag("--backup", output->backup_, "Keep what FILE was as FILE.bak, which is replaced")->needs(inPlace);
  return output;
}

}  // namespace VelkTool
