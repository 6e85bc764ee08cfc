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
  session.ElementType = {0, ShuntSeriesLC, SeriesLine, SeriesResistor, ShuntCapacitor, TwoPort};
  session.Value[1] = {0, 2.2e-6, 100, 37.34e-12, 1000};
  session.Value[2] = {0, 30, 14.2e6, 75};
  session.Value[3] = {0, 49.9};
  session.Value[4] = {0, 3.0e-9, 1000};
  session.Value[5] = {0, 3, 1, 1};
  session.TwoPortBlocks[5].file = "/home/me/parts/balun, 4-1.s2p";
  EXPECT_EQ(PartsListCsv(session, {.capacitor = 2}),
            "stage,part,value,series,tolerance\n"
            "1,shunt series LC L,2.2 uH,E3,5 %\n"
            "1,shunt series LC C,37.34 pF,,2 %\n"
            "2,line section,30 deg at 14.2 MHz 75 ohm,,2 %\n"
            "3,series resistor,49.9 ohm,E96,1 %\n"
            "4,shunt capacitor,3 nF,E24,2 %\n"
            "5,two-port block,\"balun, 4-1.s2p shunt, 2 shorted, ports swapped\",,\n");
}

// A cable goes by its catalogue name where its figures are a catalogue
// cable's, else by its figures; a transformer by its ratio and windings.
TEST(PartsList, CablesAndTransformers) {
  Session session;
  InitialiseSession(session);
  session.Cables.cables = {{"RG-213", 50, 0.66, 0.59576, 0.00276},
                           {"RG-58", 50, 0.66, 1.3807, 0.022686},
                           {"Mine, foam", 52, 0.8, 1, 0.01}};
  session.ElementType = {0, CoaxialCable, CoaxialCable, CoaxialCable, Transformer, Transformer};
  session.Value[1] = {0, 30, 50, 0.66, 1.3807, 0.022686};
  session.Value[2] = {0, 12.5, 50, 0.66, 1.38, 0.022686};
  session.Value[3] = {0, 3, 52, 0.8, 1, 0.01};
  session.Value[4] = {0, 49, 20e-6, 0.2e-6};
  session.Value[5] = {0, 4};
  EXPECT_EQ(PartsListCsv(session),
            "stage,part,value,series,tolerance\n"
            "1,coaxial cable,RG-58 30 m,,2 %\n"
            "2,coaxial cable,12.5 m of 50 ohm VF 0.66 k1 1.38 k2 0.02269 dB/100 m,,2 %\n"
            "3,coaxial cable,\"Mine, foam 3 m\",,2 %\n"
            "4,transformer,49:1 Lm 20 uH Ll 200 nH,,0 %\n"
            "5,transformer,4:1,,0 %\n");
}

}  // namespace
}  // namespace kalvex
