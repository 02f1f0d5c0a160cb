// The project checker on small projects.
#include "check/check.h"
#include "foundation/paths.h"
#include "editor/fixture.h"

#include <gtest/gtest.h>

namespace orrery {
namespace {

TEST(Check, ANewProjectChecksClean) {
    const ProjectModel model = test::NewProject();
    EXPECT_TRUE(CheckProject(model, test::FileText(model), AppPaths("/nonexistent")).empty());
}

} // namespace
} // namespace orrery
