#include <gtest/gtest.h>

#include "matching/parts_list.h"

namespace kalvex {
namespace {

TEST(PartsList, ValuesAsEngineersWriteThem) {
  const std::tuple<double, const char*, std::string> cases[] = {
      {4.7e-12, "F", "4.7 pF"},     {220e-9, "H", "220 nH"},   {49.9, "ohm", "49.9 ohm"},
      {1500, "ohm", "1.5 kohm"},    {37.34e-12, "F", "37.34 pF"}, {212.63e-9, "H", "212.6 nH"},
      {999.97e-9, "H", "1 uH"},     {1e-3, "F", "1 mF"},        {14.2e6, "Hz", "14.2 MHz"},
      {0, "F", "0 F"},
  };
  for (const auto& [value, unit, text] : cases) EXPECT_EQ(EngineeringValue(value, unit), text) << value;
}

TEST(PartsList, EveryPartWithItsSeriesAndTolerance) {
  Session session;
  InitialiseSession(session);
  session.ElementType = {0, ShuntSeriesLC, SeriesLine, SeriesResistor, ShuntCapacitor};
  session.Value[1] = {0, 2.2e-6, 100, 37.34e-12, 1000};
  session.Value[2] = {0, 30, 14.2e6, 75};
  session.Value[3] = {0, 49.9};
  session.Value[4] = {0, 3.0e-9, 1000};
  Tolerances tolerances;
  tolerances.capacitor = 2;
  EXPECT_EQ(PartsListCsv(session, tolerances),
            "stage,part,value,series,tolerance\n"
            "1,shunt series LC L,2.2 uH,E3,5 %\n"
            "1,shunt series LC C,37.34 pF,,2 %\n"
            "2,line section,30 deg at 14.2 MHz 75 ohm,,2 %\n"
            "3,series resistor,49.9 ohm,E96,1 %\n"
            "4,shunt capacitor,3 nF,E24,2 %\n");
}

}  // namespace
}  // namespace kalvex
