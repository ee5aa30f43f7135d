#include "modules/parameter_fields.hpp"

#include <gtest/gtest.h>

namespace filo::modules {
namespace {

TEST(ParameterFields, ShownAndStoredForms) {
    EXPECT_EQ(TOGLI_ZERI("000"), "0");
    EXPECT_EQ(TOGLI_ZERI("007"), "7");
    EXPECT_EQ(TOGLI_ZERI("020"), "20");
    EXPECT_EQ(TOGLI_ZERI("255"), "255");
    EXPECT_EQ(TRE_CIFRE(""), "000");
    EXPECT_EQ(TRE_CIFRE("7"), "007");
    EXPECT_EQ(TRE_CIFRE("255"), "255");
    EXPECT_EQ(held_to_byte("300"), "255");
    EXPECT_EQ(held_to_byte("07"), "7");
    EXPECT_EQ(held_to_byte(""), "");
    EXPECT_EQ(held_to_byte("1a2"), "12");
}

TEST(ParameterFields, ModuleParametersLiveInRowOne) {
    std::string riserva3(26, '0');
    std::string p = module_parameters(riserva3);
    set_parameter_field(p, 3, "020");
    set_parameter_field(p, 6, "030");
    set_module_parameters(riserva3, p);
    EXPECT_EQ(riserva3, "00000000000000020000000030");
    EXPECT_EQ(parameter_field(module_parameters(riserva3), 6), "030");
    EXPECT_EQ(module_parameters("0000000000000002000000003"),
              std::string(18, '0'));  // 25: too short

    std::string shorter = "11";  // a damaged row grows to hold the fields
    set_module_parameters(shorter, "123456789012345678");
    EXPECT_EQ(shorter, "11000000123456789012345678");
}

TEST(ParameterFields, OutputValuesAndEmergency) {
    std::string riserva2(50, '0');
    OutputValues v = read_output_values(riserva2);
    EXPECT_EQ(v.on, 251);
    EXPECT_EQ(v.off, 9);
    v.on = 200;
    v.emergency = emergency_value_of_percent(100);
    write_output_values(riserva2, v);
    EXPECT_EQ(riserva2.substr(0, 9), "200000255");
    v.on = 251;
    v.off = 20;
    v.emergency = emergency_value_of_percent(50);
    write_output_values(riserva2, v);
    EXPECT_EQ(riserva2.substr(0, 9), "000020127");
    EXPECT_EQ(emergency_value_of_percent(1), 2);
}

TEST(ParameterFields, ReceiverAndCards) {
    std::string riserva4(50, '0');
    EXPECT_EQ(receiver_code(riserva4), "000000");
    set_receiver_code(riserva4, "00024A");
    EXPECT_EQ(receiver_code(riserva4), "00024A");
    EXPECT_EQ(riserva4.size(), 50u);

    std::string forty(240, 'A');
    EXPECT_EQ(cards_of(forty).size(), 40u);
    EXPECT_EQ(cards_of(forty + "BBBBBB").size(), 40u);  // read up to character 240
    EXPECT_EQ(cards_of("ABC"), std::vector<std::string>{"ABC"});
    EXPECT_EQ(cards_text({"ABCDEF", "Elenco card inserite", "12", "123456"}), "ABCDEF123456");
}

}  // namespace
}  // namespace filo::modules
