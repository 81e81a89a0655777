#include "frontend/cli/batchplan.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <system_error>

namespace fs = std::filesystem;

namespace {

const char* const kRibSuffixes[] = {".rib.gz", ".rib", ".RIB"};

std::string inQuotes(const std::string& path) {
  return "\"" + path + "\"";
}

// The length of the RIB suffix that name ends with, or 0. A name that is
// nothing but the suffix has none.
size_t ribSuffix(const std::string& name) {
  for (const char* suffix : kRibSuffixes) {
    std::string s = suffix;
    if (name.size() > s.size() && name.compare(name.size() - s.size(), s.size(), s) == 0) {
      return s.size();
    }
  }
  return 0;
}

bool isFile(const fs::directory_entry& e) {
  std::error_code ec;
  return e.is_regular_file(ec) || (e.is_symlink(ec) && fs::is_regular_file(e.path(), ec));
}

// Folders reached through a symbolic link are left alone, so that a link
// back up the tree cannot make the walk endless.
// below is the folder's path below the folder given.
void walk(const fs::path& folder, const fs::path& below, std::vector<batchinput>& found,
          std::vector<batchproblem>& problems) {
  std::error_code ec;
  std::vector<fs::directory_entry> entries;
  for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
    entries.push_back(*it);
  }
  if (ec) {
    problems.push_back({folder.string(), "Unable to read folder " + inQuotes(folder.string()) +
                                             ": " + ec.message()});
    return;
  }
  std::sort(entries.begin(), entries.end(),
            [](const auto& a, const auto& b) { return a.path() < b.path(); });
  for (const fs::directory_entry& e : entries) {
    std::error_code kind;
    if (e.is_directory(kind) && !e.is_symlink(kind)) {
      walk(e.path(), below / e.path().filename(), found, problems);
    } else if (isribname(e.path().filename().string()) && isFile(e)) {
      std::error_code sized;
      uint64_t bytes = fs::file_size(e.path(), sized);
      found.push_back(
          {e.path().string(), (below / e.path().filename()).string(), sized ? 0 : bytes});
    }
  }
}

}  // namespace

bool isribname(const std::string& name) {
  return ribSuffix(name) != 0;
}

std::string batchscenename(const std::string& relative) {
  return relative.substr(0, relative.size() - ribSuffix(relative)) + ".zel";
}

std::vector<batchinput> findbatchinputs(const std::vector<std::string>& args,
                                        std::vector<batchproblem>& problems) {
  std::vector<batchinput> found;
  for (const std::string& arg : args) {
    std::error_code ec;
    if (!fs::is_directory(arg, ec)) {
      // A missing or unreadable file is that file's failure, told by its conversion.
      uint64_t bytes = fs::file_size(arg, ec);
      found.push_back({arg, fs::path(arg).filename().string(), ec ? 0 : bytes});
      continue;
    }
    size_t before = found.size();
    size_t problemsBefore = problems.size();
    walk(arg, "", found, problems);
    if (found.size() == before && problems.size() == problemsBefore) {
      problems.push_back(
          {arg, "No *.rib, *.RIB or *.rib.gz file in the folder " + inQuotes(arg), false});
    }
  }
  return found;
}

batchplan planbatch(const std::vector<batchinput>& inputs, const std::string& outputDir) {
  batchplan plan;
  std::map<std::string, size_t> claimed;  // scene file -> the job that writes it
  for (const batchinput& in : inputs) {
    fs::path out = (fs::path(outputDir) / batchscenename(in.relative)).lexically_normal();
    auto [it, fresh] = claimed.emplace(out.string(), plan.jobs.size());
    if (!fresh) {
      plan.clashes.push_back(inQuotes(plan.jobs[it->second].input) + " and " + inQuotes(in.path) +
                             " would both write " + inQuotes(out.string()));
      continue;
    }
    plan.jobs.push_back({in.path, out.string(), in.bytes});
  }
  return plan;
}
