// The frame's mechanisms in-process: presenting, the front surface, the
// catch-all with a table fault, the loading bar.
#include <gtest/gtest.h>

#include <utility>

#include "display/surface.h"
#include "automation/automation.h"
#include "frame/catalogue.h"
#include "frame/frame_state.h"
#include "automation/options.h"
#include "display/passes.h"
#include "frame/program.h"
#include "core/table.h"
#include "platform/backend.h"
#include "platform/clock.h"
#include "tests/support/fake_backend.h"

using namespace display;

namespace {

class FrameInProcess : public ::testing::Test {
 protected:
  void SetUp() override {
    platform::SetCurrent(platform::MakeHeadlessBackend());
    platform::ClearQuitRequest();
    automation::Options none;
    automation::Configure(none);
    std::string failed;
    ASSERT_TRUE(InitDisplay(failed)) << failed;
    CreateBlankSurface(Display.Backdrop, 800, 600, 0);
    Display.ScreenRect = {0, 0, 800, 600};  // as GameMain sets it
  }
};

}  // namespace

TEST_F(FrameInProcess, PresentModesAndTheFrontSurface) {
  FillSurface(Display.Backdrop, Display.WholeRect, 1234);
  FillSurface(Display.BackBuffer, Display.WholeRect, 77);
  const uint64_t frames = display::FramesPresented();
  const uint64_t units = platform::ClockUnits();
  PresentFrame(0);
  EXPECT_EQ(Display.PrimarySurface.Row(300)[400], 77) << "the composed frame is on screen";
  EXPECT_EQ(Display.BackBuffer.Row(0)[0], 1234) << "mode 0 restores the backdrop";
  EXPECT_EQ(display::FramesPresented(), frames + 1);
  EXPECT_EQ(platform::ClockUnits(), units + 1000);
  PresentFrame(1);
  EXPECT_EQ(Display.BackBuffer.Row(599)[799], 0) << "mode 1 clears to black";
  PresentFrame(6);
  EXPECT_EQ(Display.BackBuffer.Row(10)[10], 5) << "mode n fills with n - 1";

  // Mode 0 copies ScreenRect of the backdrop onto ScreenRect of the back
  // buffer; outside it the back buffer keeps the picture it swapped in.
  Display.ScreenRect = {100, 50, 300, 200};
  FillSurface(Display.PrimarySurface, Display.WholeRect, 4321);
  PresentFrame(0);
  EXPECT_EQ(Display.BackBuffer.Row(50)[100], 1234);
  EXPECT_EQ(Display.BackBuffer.Row(199)[299], 1234);
  for (auto [x, y] : {std::pair{100, 49}, {99, 50}, {299, 200}, {300, 199}, {0, 0}, {799, 599}})
    EXPECT_EQ(Display.BackBuffer.Row(y)[x], 4321) << x << "," << y;
  Display.ScreenRect = {0, 0, 800, 600};

  // Drawing on the picture on screen shows without a frame.
  SetForeColour(Display.PrimarySurface, 0, 255, 0);
  SetFillColour(Display.PrimarySurface, 0, 255, 0);
  DrawBox(Display.PrimarySurface, 10, 10, 20, 20);
  EXPECT_TRUE(Display.FrontDirty);
  EXPECT_EQ(Display.PrimarySurface.Row(15)[15], Rgb565(0, 255, 0));
  display::IdlePass();
  EXPECT_FALSE(Display.FrontDirty) << "the next idle pass shows it";
  EXPECT_EQ(display::FramesPresented(), frames + 4) << "and presents nothing";
  EXPECT_EQ(platform::ClockUnits(), units + 4000 + 60);

  const uint32_t t = display::GetTick();
  display::WaitMs(50);
  EXPECT_EQ(display::GetTick(), t + 50) << "a wait runs idle passes of 1 ms";
}

TEST_F(FrameInProcess, TableFaultReachesTheCatchAll) {
  static core::Table<int, 0, 20> delays;
  delays.name = "DropDelay";
  int status = frame::RunGuarded([] { delays[21] = 5; });
  EXPECT_EQ(status, 1);
  int quit = frame::RunGuarded([] { throw core::OrderlyQuit{}; });
  EXPECT_EQ(quit, 0) << "the orderly quit leaves without the error box";
}

TEST_F(FrameInProcess, LoadingBarSteps) {
  frame::Frame.LoadStep = 2;
  const uint64_t frames = display::FramesPresented();
  for (int i = 0; i < 17; ++i) frame::UpdateLoadStatus();
  EXPECT_EQ(display::FramesPresented(), frames) << "no redraw before step 20";
  frame::UpdateLoadStatus();
  EXPECT_EQ(display::FramesPresented(), frames + 1) << "the 18th creation step redraws";
  const Surface& shown = Display.PrimarySurface;
  EXPECT_EQ(shown.Row(280)[18], 0xFFFF) << "bar 19 pixels wide at step 20";
  EXPECT_EQ(shown.Row(280)[19], 0);
  EXPECT_EQ(shown.Row(285)[13], Rgb565(200, 255, 200));
  EXPECT_EQ(shown.Row(285)[14], 0) << "each band 5 pixels shorter: the slanted end";
  frame::Frame.LoadStep = 859;
  frame::UpdateLoadStatus();
  EXPECT_EQ(shown.Row(280)[799], 0xFFFF) << "full width at the last redraw";
  EXPECT_EQ(shown.Row(329)[798], Rgb565(0, 50, 0)) << "the slanted end reaches past 798 only at later steps";
  EXPECT_EQ(shown.Row(330)[400], 0);
}

TEST(FramePresenting, TheBackEndHearsOfEveryPresentedFrameOnly) {
  // The devices drop presses nobody read at each presented frame, so the
  // back end must hear of those frames and not of the idle passes.
  auto backend = std::make_unique<testsupport::FakeBackend>();
  auto counts = backend->counts;
  platform::SetCurrent(std::move(backend));
  automation::Options none;
  automation::Configure(none);
  std::string failed;
  ASSERT_TRUE(InitDisplay(failed)) << failed;
  CreateBlankSurface(Display.Backdrop, 800, 600, 0);
  Display.ScreenRect = {0, 0, 800, 600};
  PresentFrame(0);
  PresentFrame(1);
  Display.FrontDirty = true;
  display::IdlePass();
  display::WaitMs(3);
  EXPECT_EQ(counts->framesPresented, 2);
  EXPECT_EQ(counts->pictures, 3) << "the idle pass showed the drawn-on picture";
}

