// A DXF file dropped on the drawing of the running program.
#include "gtest/gtest.h"

#include "core/drawing_store.h"
#include "core/lifecycle.h"
#include "import/frmDXF.h"
#include "tests/support/running_program.h"
#include "tests/support/source_folder.h"

namespace tess {
namespace {

class DroppedDxf : public ::testing::Test, public testing::RunningProgram {};

TEST_F(DroppedDxf, TheImportFormShowsTheFileAndItsRowsJoinTheDrawing) {
  platform.prompts.onForm = [](Form& form) {
    auto& import = dynamic_cast<frmDXF&>(form);
    EXPECT_EQ(import.lblFile.caption(), "plate_r12.dxf: 6 entities");
    import.cmdImport2TESS.click();
  };
  const std::string names[] = {TESSIMO_SOURCE_DIR "/tests/import/files/plate_r12.dxf"};
  dropFiles(application.session, names);
  EXPECT_EQ(platform.prompts.formNames, std::vector<std::string>{"frmDXF"});
  EXPECT_EQ(application.store.NumSegments, 6);
  EXPECT_EQ(application.store.drawingname, "plate_r12");
}

}  // namespace
}  // namespace tess
