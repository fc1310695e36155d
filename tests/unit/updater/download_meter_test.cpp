#include "updater/download_meter.h"

#include <gtest/gtest.h>

#include <limits>

namespace ravelin {
namespace {

TEST(DownloadMeter, ReadsTheDeclaredLength) {
    EXPECT_EQ(declaredLength("0"), 0U);
    EXPECT_EQ(declaredLength("209715201"), 209715201U);
    EXPECT_EQ(declaredLength("12 bytes"), 12U);
}

TEST(DownloadMeter, WhatIsNoLengthIsUnknown) {
    EXPECT_EQ(declaredLength(""), 0U);
    EXPECT_EQ(declaredLength("many"), 0U);
    EXPECT_EQ(declaredLength("-1"), 0U);
}

TEST(DownloadMeter, ALengthBeyondAllNumbersIsTooLarge) {
    EXPECT_EQ(declaredLength("99999999999999999999999"), std::numeric_limits<std::uint64_t>::max());
    EXPECT_TRUE(DownloadMeter(declaredLength("99999999999999999999999")).isTooLarge());
}

TEST(DownloadMeter, TwoHundredMebibytesAreTheMost) {
    EXPECT_FALSE(DownloadMeter(209715200).isTooLarge());
    EXPECT_TRUE(DownloadMeter(209715201).isTooLarge());
    DownloadMeter meter(0);
    meter.add(209715200);
    EXPECT_FALSE(meter.isTooLarge());
    meter.add(1);
    EXPECT_TRUE(meter.isTooLarge());
}

TEST(DownloadMeter, TheFirstChunkIsAlwaysReported) {
    DownloadMeter meter(1000);
    meter.add(10);
    EXPECT_TRUE(meter.isReportDue(0));
    EXPECT_FALSE(meter.isReportDue(0));
}

TEST(DownloadMeter, LaterChunksAreReportedEvery100Milliseconds) {
    DownloadMeter meter(1000);
    meter.add(10);
    ASSERT_TRUE(meter.isReportDue(5000));
    EXPECT_FALSE(meter.isReportDue(5099));
    EXPECT_TRUE(meter.isReportDue(5100));
    EXPECT_FALSE(meter.isReportDue(5199));
    EXPECT_TRUE(meter.isReportDue(5250));
    EXPECT_FALSE(meter.isReportDue(5300));
}

TEST(DownloadMeter, EverythingAnnouncedIsReportedAtOnce) {
    DownloadMeter meter(30);
    meter.add(10);
    ASSERT_TRUE(meter.isReportDue(5000));
    meter.add(20);
    EXPECT_TRUE(meter.isReportDue(5001));
    meter.add(1);
    EXPECT_FALSE(meter.isReportDue(5002));
}

TEST(DownloadMeter, TheTotalAtTheEndIsTheLargerOfBoth) {
    DownloadMeter unknown(0);
    unknown.add(7);
    EXPECT_EQ(unknown.finalTotal(), 7U);
    DownloadMeter cutShort(100);
    cutShort.add(7);
    EXPECT_EQ(cutShort.finalTotal(), 100U);
    DownloadMeter tooMuch(5);
    tooMuch.add(7);
    EXPECT_EQ(tooMuch.finalTotal(), 7U);
}

}  // namespace
}  // namespace ravelin
