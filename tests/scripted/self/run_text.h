// Case texts run on the sample windows.
#pragma once

#include <optional>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "tests/scripted/engine/case_parser.h"
#include "tests/scripted/engine/case_runner.h"
#include "tests/scripted/self/sample_window.h"

namespace goods {

inline constexpr const char* kSetup =
    "setup\n"
    "  given rows for \"Exec Sample%\"\n"
    "    | Name | Amount:decimal |\n"
    "    | الف  | 1000.5         |\n"
    "    | ب    | null           |\n";

struct Outcome {
  int passed = 0;
  int failed = 0;
  std::string output;

  bool Says(const std::string& text) const { return output.find(text) != std::string::npos; }
};

inline Outcome RunText(const std::string& text) {
  std::ostringstream out;
  try {
    const CaseCounts counts =
        RunCases(SampleEnvironment(), ParseCases(text, "sample.case"), std::nullopt, out);
    return {counts.passed, counts.failed, out.str()};
  } catch (const CaseError& error) {
    return {0, 1, error.what()};
  }
}

// One case with the steps, behind a setup that answers the sample's statements.
inline Outcome RunSteps(const std::string& steps) {
  return RunText(std::string(kSetup) + "1. A case.\n" + steps);
}

inline void ExpectPass(const Outcome& outcome) {
  EXPECT_EQ(outcome.passed, 1) << outcome.output;
  EXPECT_EQ(outcome.failed, 0) << outcome.output;
}

inline void ExpectFailure(const Outcome& outcome, const std::string& message) {
  EXPECT_EQ(outcome.failed, 1) << outcome.output;
  EXPECT_TRUE(outcome.Says(message)) << outcome.output;
}

}  // namespace goods
