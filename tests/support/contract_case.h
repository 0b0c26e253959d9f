// Cases of the contract suite as data: what is done on a fresh page, and what its handler hears of it.
#pragma once

#include <gmock/gmock.h>

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "tests/support/stage.h"

namespace set32 {

struct ContractCase {
  const char* name;
  std::function<void(Stage&)> prepare;  // what is heard of this isn't compared
  std::function<void(Stage&)> act;
  std::vector<std::string> heard;
};

inline void RunContractCases(const DialogTemplate& page, const std::vector<ContractCase>& cases) {
  for (const ContractCase& one : cases) {
    SCOPED_TRACE(one.name);
    Stage stage(page);
    if (one.prepare) one.prepare(stage);
    stage.Heard();
    one.act(stage);
    EXPECT_THAT(stage.Heard(), testing::ElementsAreArray(one.heard));
  }
}

}  // namespace set32
