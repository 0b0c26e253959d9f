// make_seeds FOLDER SCRIPTS: writes what every fuzz target begins with into a folder, which is made anew; the scripts
// of another folder are among it.
#include <cstdio>
#include <exception>

#include "fuzz/seeds/seeds.h"

int main(int count, char** values) {
  using namespace set32::fuzz;
  if (count != 3) {
    std::fputs("make_seeds FOLDER SCRIPTS\n", stderr);
    return 2;
  }
  try {
    std::filesystem::remove_all(values[1]);
    Seeds seeds(values[1]);
    AddPictures(seeds);
    AddProfiles(seeds);
    AddScanners(seeds);
    AddPanels(seeds);
    AddScripts(seeds, values[2]);
  } catch (const std::exception& trouble) {
    std::fprintf(stderr, "make_seeds: %s\n", trouble.what());
    return 1;
  }
  return 0;
}
