#include "DelayedDrawing.h"

#include <gtest/gtest.h>

namespace vanoka {

namespace {

TEST(DelayedDrawing, DrawsOnceForAllChangesOfOneTurn) {
    int scheduled = 0, drawn = 0;
    DelayedDrawing drawing([&] { ++scheduled; }, [&] { ++drawn; });
    drawing.drawIfDue();
    EXPECT_EQ(drawn, 0) << "nothing has changed";
    drawing.drawSoon();
    drawing.drawSoon();
    EXPECT_EQ(scheduled, 1);
    EXPECT_EQ(drawn, 0);
    drawing.drawIfDue(); // somebody cannot wait
    drawing.drawIfDue(); // and then the event loop comes
    EXPECT_EQ(drawn, 1);
    drawing.drawSoon();
    EXPECT_EQ(scheduled, 2);
}

TEST(DelayedDrawing, AChangeWhileDrawingIsDrawnNextTurn) {
    int drawn = 0;
    DelayedDrawing* itself = nullptr;
    DelayedDrawing drawing([] {},
                           [&] {
                               if (++drawn == 1)
                                   itself->drawSoon();
                           });
    itself = &drawing;
    drawing.drawSoon();
    drawing.drawIfDue();
    EXPECT_EQ(drawn, 1);
    drawing.drawIfDue();
    EXPECT_EQ(drawn, 2);
}

} // namespace

} // namespace vanoka
