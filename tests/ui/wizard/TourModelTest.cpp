#include <gmock/gmock.h>

#include "ui/QtPrinters.h"
#include "ui/wizard/TourModel.h"

namespace vellomar {
namespace {

TEST(TourModel, GoesFromStopToStopAndEndsBehindTheLast) {
    TourModel tour;
    EXPECT_FALSE(tour.isShown());
    tour.open();
    QStringList road;
    for (; tour.isShown(); tour.goForward())
        road << tour.positionText() + " " + tour.title() + " " + tour.forwardText() + (tour.canGoBack() ? " ←" : "");
    EXPECT_EQ(road, QStringList({"1 of 6 Sources Next →", "2 of 6 Destination Next → ←", "3 of 6 Config Next → ←",
                                 "4 of 6 DRY RUN & RUN Next → ←", "5 of 6 Dashboard Next → ←",
                                 "6 of 6 Log & Options Got it! ←"}));
    EXPECT_FALSE(tour.isOpen());
}

TEST(TourModel, GoesBackToTheFirstStopAndNoFurther) {
    TourModel tour;
    tour.open();
    tour.goForward();
    tour.goBack();
    EXPECT_EQ(tour.step(), 0);
    tour.goBack();
    EXPECT_EQ(tour.step(), 0);
    EXPECT_TRUE(tour.isShown());
}

TEST(TourModel, EndsAtAnyStopAndBeginsAnew) {
    TourModel tour;
    tour.open();
    tour.goForward();
    tour.dismiss();
    EXPECT_FALSE(tour.isShown());
    tour.open();
    EXPECT_EQ(tour.step(), 0);
    EXPECT_EQ(tour.description(),
              "Add your photo folders here.\nLocal drives, external drives, or NAS network shares.");
    EXPECT_EQ(tour.icon(), "folder.fill");
    EXPECT_EQ(tour.area(), "sources");
}

TEST(TourModel, AStepOutsideShowsNothing) {
    TourModel tour;
    tour.open();
    for (const int step : {-1, 6, 100}) {
        tour.setStep(step);
        EXPECT_FALSE(tour.isShown()) << step;
        EXPECT_EQ(tour.title(), "") << step;
    }
    tour.setStep(5);
    EXPECT_TRUE(tour.isShown());
}

TEST(TourModel, PlacesItsOwnStop) {
    TourModel tour;
    tour.open();
    tour.setStep(4);
    const auto place = tour.placeIn({1000, 1000}, {200, 50, 600, 90}, {0, 0, 1000, 1000}, {300, 150});
    EXPECT_EQ(place.tip, QPointF(500, 150));
    EXPECT_EQ(tour.areaTop({1000, 1000}, 90, {0, 0, 1000, 1000}), 56);
}

}  // namespace
}  // namespace vellomar
