#include "app/pipe_security.h"

#include <gtest/gtest.h>

namespace ravelin {
namespace {

TEST(PipeSecurity, GrantsSystemAdministratorsAndTheUserAndNobodyElse) {
    EXPECT_EQ(pipeSecurityText("S-1-5-21-1-2-3-1001", 0x2000),
              "D:P(A;;GA;;;SY)(A;;GA;;;BA)(A;;GA;;;S-1-5-21-1-2-3-1001)");
}

TEST(PipeSecurity, KeepsLowerIntegrityFromWritingFromHighOn) {
    const std::string high = "D:P(A;;GA;;;SY)(A;;GA;;;BA)(A;;GA;;;S-1-5-18)S:(ML;;NW;;;HI)";
    EXPECT_EQ(pipeSecurityText("S-1-5-18", 0x3000), high);
    EXPECT_EQ(pipeSecurityText("S-1-5-18", 0x4000), high);
    EXPECT_EQ(pipeSecurityText("S-1-5-18", 0x2FFF).find("S:("), std::string::npos);
}

}  // namespace
}  // namespace ravelin
