#include "standalone/validate/result_file.h"

#include <nlohmann/json.hpp>
#include <stdexcept>

#include "base/utf8_path.h"

namespace quiltor::standalone {
namespace {

constexpr std::size_t kProgressBytes = 400;

std::filesystem::path progressPath(const std::filesystem::path& folder) { return folder / "progress"; }
std::filesystem::path resultPath(const std::filesystem::path& folder) { return folder / "result"; }

}  // namespace

CheckOutcome outcomeOf(const CheckRun& run) { return {run.problems(), run.trials(), run.inapplicability()}; }

ProgressFile::ProgressFile(const std::filesystem::path& folder) : file_(progressPath(folder), std::ios::binary) {}

void ProgressFile::write(const std::string& line) {
  std::string padded = line.substr(0, kProgressBytes);
  padded.resize(kProgressBytes, ' ');
  file_.seekp(0);
  file_ << padded << std::flush;
}

void writeResult(const std::filesystem::path& folder, const CheckOutcome& outcome) {
  const nlohmann::json json{
      {"problems", outcome.problems}, {"trials", outcome.trials}, {"inapplicability", outcome.inapplicability}};
  std::ofstream file(resultPath(folder), std::ios::binary);
  // Texts of an effect may be of any encoding.
  file << json.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
  file.close();
  if (!file) throw std::runtime_error("cannot write " + utf8FromPath(resultPath(folder)));
}

std::string readProgress(const std::filesystem::path& folder) {
  std::ifstream file(progressPath(folder), std::ios::binary);
  std::string line;
  std::getline(file, line);
  line.erase(line.find_last_not_of(' ') + 1);
  return line;
}

std::optional<CheckOutcome> readResult(const std::filesystem::path& folder) {
  try {
    std::ifstream file(resultPath(folder), std::ios::binary);
    const nlohmann::json json = nlohmann::json::parse(file);
    return CheckOutcome{json.at("problems").get<std::vector<std::string>>(), json.at("trials").get<std::size_t>(),
                        json.at("inapplicability").get<std::string>()};
  } catch (const nlohmann::json::exception&) {
    return std::nullopt;
  }
}

}  // namespace quiltor::standalone
