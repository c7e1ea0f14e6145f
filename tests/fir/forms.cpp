#include "tests/fir/forms.h"

#include "tests/support/digest.h"
#include "tests/support/elements.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace orvtest {

// ---- Exports

bool FirTypes::is_mixed() const
{
    return samples.number != Number::binary_float ||
           samples.component_size != (engine == FirEngine::single_precision ? 4u : 8u);
}

const std::vector<FirForm>& fir_forms()
{
    static const std::vector<FirForm> forms = {
        {{"32f", FirEngine::single_precision, element_type<Orv32f>(), element_type<Orv32f>(), false},
         "FI01",
         64,
         ORV_EXPORT(orvsFIRGetStateSize_32f),
         ORV_EXPORT(orvsFIRInit_32f),
         ORV_EXPORT(orvsFIRInitAlloc_32f),
         ORV_EXPORT(orvsFIRFree_32f),
         ORV_EXPORT(orvsFIRSetTaps_32f),
         ORV_EXPORT(orvsFIRGetTaps_32f),
         ORV_EXPORT(orvsFIRSetDlyLine_32f),
         ORV_EXPORT(orvsFIRGetDlyLine_32f),
         ORV_EXPORT(orvsFIR_32f),
         ORV_EXPORT(orvsFIR_32f_I),
         ORV_EXPORT(orvsFIROne_32f)},
        {{"32fc", FirEngine::single_precision, element_type<Orv32fc>(), element_type<Orv32fc>(), false},
         "FI02",
         16,
         ORV_EXPORT(orvsFIRGetStateSize_32fc),
         ORV_EXPORT(orvsFIRInit_32fc),
         ORV_EXPORT(orvsFIRInitAlloc_32fc),
         ORV_EXPORT(orvsFIRFree_32fc),
         ORV_EXPORT(orvsFIRSetTaps_32fc),
         ORV_EXPORT(orvsFIRGetTaps_32fc),
         ORV_EXPORT(orvsFIRSetDlyLine_32fc),
         ORV_EXPORT(orvsFIRGetDlyLine_32fc),
         ORV_EXPORT(orvsFIR_32fc),
         ORV_EXPORT(orvsFIR_32fc_I),
         ORV_EXPORT(orvsFIROne_32fc)},
        {{"64f", FirEngine::double_precision, element_type<Orv64f>(), element_type<Orv64f>(), false},
         "FI13",
         64,
         ORV_EXPORT(orvsFIRGetStateSize_64f),
         ORV_EXPORT(orvsFIRInit_64f),
         ORV_EXPORT(orvsFIRInitAlloc_64f),
         ORV_EXPORT(orvsFIRFree_64f),
         ORV_EXPORT(orvsFIRSetTaps_64f),
         ORV_EXPORT(orvsFIRGetTaps_64f),
         ORV_EXPORT(orvsFIRSetDlyLine_64f),
         ORV_EXPORT(orvsFIRGetDlyLine_64f),
         ORV_EXPORT(orvsFIR_64f),
         ORV_EXPORT(orvsFIR_64f_I),
         ORV_EXPORT(orvsFIROne_64f)},
        {{"64fc", FirEngine::double_precision, element_type<Orv64fc>(), element_type<Orv64fc>(), false},
         "FI14",
         32,
         ORV_EXPORT(orvsFIRGetStateSize_64fc),
         ORV_EXPORT(orvsFIRInit_64fc),
         ORV_EXPORT(orvsFIRInitAlloc_64fc),
         ORV_EXPORT(orvsFIRFree_64fc),
         ORV_EXPORT(orvsFIRSetTaps_64fc),
         ORV_EXPORT(orvsFIRGetTaps_64fc),
         ORV_EXPORT(orvsFIRSetDlyLine_64fc),
         ORV_EXPORT(orvsFIRGetDlyLine_64fc),
         ORV_EXPORT(orvsFIR_64fc),
         ORV_EXPORT(orvsFIR_64fc_I),
         ORV_EXPORT(orvsFIROne_64fc)},
        {{"32f_16s", FirEngine::single_precision, element_type<Orv32f>(), element_type<Orv16s>(), false},
         "FI05",
         64,
         ORV_EXPORT(orvsFIRGetStateSize32f_16s),
         ORV_EXPORT(orvsFIRInit32f_16s),
         ORV_EXPORT(orvsFIRInitAlloc32f_16s),
         ORV_EXPORT(orvsFIRFree32f_16s),
         ORV_EXPORT(orvsFIRSetTaps32f_16s),
         ORV_EXPORT(orvsFIRGetTaps32f_16s),
         ORV_EXPORT(orvsFIRSetDlyLine32f_16s),
         ORV_EXPORT(orvsFIRGetDlyLine32f_16s),
         ORV_EXPORT(orvsFIR32f_16s_Sfs),
         ORV_EXPORT(orvsFIR32f_16s_ISfs),
         ORV_EXPORT(orvsFIROne32f_16s_Sfs)},
        {{"32fc_16sc", FirEngine::single_precision, element_type<Orv32fc>(), element_type<Orv16sc>(), false},
         "FI06",
         16,
         ORV_EXPORT(orvsFIRGetStateSize32fc_16sc),
         ORV_EXPORT(orvsFIRInit32fc_16sc),
         ORV_EXPORT(orvsFIRInitAlloc32fc_16sc),
         ORV_EXPORT(orvsFIRFree32fc_16sc),
         ORV_EXPORT(orvsFIRSetTaps32fc_16sc),
         ORV_EXPORT(orvsFIRGetTaps32fc_16sc),
         ORV_EXPORT(orvsFIRSetDlyLine32fc_16sc),
         ORV_EXPORT(orvsFIRGetDlyLine32fc_16sc),
         ORV_EXPORT(orvsFIR32fc_16sc_Sfs),
         ORV_EXPORT(orvsFIR32fc_16sc_ISfs),
         ORV_EXPORT(orvsFIROne32fc_16sc_Sfs)},
        {{"64f_32f", FirEngine::double_precision, element_type<Orv64f>(), element_type<Orv32f>(), false},
         "FI17",
         64,
         ORV_EXPORT(orvsFIRGetStateSize64f_32f),
         ORV_EXPORT(orvsFIRInit64f_32f),
         ORV_EXPORT(orvsFIRInitAlloc64f_32f),
         ORV_EXPORT(orvsFIRFree64f_32f),
         ORV_EXPORT(orvsFIRSetTaps64f_32f),
         ORV_EXPORT(orvsFIRGetTaps64f_32f),
         ORV_EXPORT(orvsFIRSetDlyLine64f_32f),
         ORV_EXPORT(orvsFIRGetDlyLine64f_32f),
         ORV_EXPORT(orvsFIR64f_32f),
         ORV_EXPORT(orvsFIR64f_32f_I),
         ORV_EXPORT(orvsFIROne64f_32f)},
        {{"64fc_32fc", FirEngine::double_precision, element_type<Orv64fc>(), element_type<Orv32fc>(), false},
         "FI18",
         32,
         ORV_EXPORT(orvsFIRGetStateSize64fc_32fc),
         ORV_EXPORT(orvsFIRInit64fc_32fc),
         ORV_EXPORT(orvsFIRInitAlloc64fc_32fc),
         ORV_EXPORT(orvsFIRFree64fc_32fc),
         ORV_EXPORT(orvsFIRSetTaps64fc_32fc),
         ORV_EXPORT(orvsFIRGetTaps64fc_32fc),
         ORV_EXPORT(orvsFIRSetDlyLine64fc_32fc),
         ORV_EXPORT(orvsFIRGetDlyLine64fc_32fc),
         ORV_EXPORT(orvsFIR64fc_32fc),
         ORV_EXPORT(orvsFIR64fc_32fc_I),
         ORV_EXPORT(orvsFIROne64fc_32fc)},
        {{"64f_32s", FirEngine::double_precision, element_type<Orv64f>(), element_type<Orv32s>(), false},
         "FI21",
         64,
         ORV_EXPORT(orvsFIRGetStateSize64f_32s),
         ORV_EXPORT(orvsFIRInit64f_32s),
         ORV_EXPORT(orvsFIRInitAlloc64f_32s),
         ORV_EXPORT(orvsFIRFree64f_32s),
         ORV_EXPORT(orvsFIRSetTaps64f_32s),
         ORV_EXPORT(orvsFIRGetTaps64f_32s),
         ORV_EXPORT(orvsFIRSetDlyLine64f_32s),
         ORV_EXPORT(orvsFIRGetDlyLine64f_32s),
         ORV_EXPORT(orvsFIR64f_32s_Sfs),
         ORV_EXPORT(orvsFIR64f_32s_ISfs),
         ORV_EXPORT(orvsFIROne64f_32s_Sfs)},
        {{"64fc_32sc", FirEngine::double_precision, element_type<Orv64fc>(), element_type<Orv32sc>(), false},
         "FI22",
         32,
         ORV_EXPORT(orvsFIRGetStateSize64fc_32sc),
         ORV_EXPORT(orvsFIRInit64fc_32sc),
         ORV_EXPORT(orvsFIRInitAlloc64fc_32sc),
         ORV_EXPORT(orvsFIRFree64fc_32sc),
         ORV_EXPORT(orvsFIRSetTaps64fc_32sc),
         ORV_EXPORT(orvsFIRGetTaps64fc_32sc),
         ORV_EXPORT(orvsFIRSetDlyLine64fc_32sc),
         ORV_EXPORT(orvsFIRGetDlyLine64fc_32sc),
         ORV_EXPORT(orvsFIR64fc_32sc_Sfs),
         ORV_EXPORT(orvsFIR64fc_32sc_ISfs),
         ORV_EXPORT(orvsFIROne64fc_32sc_Sfs)},
        {{"64f_16s", FirEngine::double_precision, element_type<Orv64f>(), element_type<Orv16s>(), false},
         "FI25",
         64,
         ORV_EXPORT(orvsFIRGetStateSize64f_16s),
         ORV_EXPORT(orvsFIRInit64f_16s),
         ORV_EXPORT(orvsFIRInitAlloc64f_16s),
         ORV_EXPORT(orvsFIRFree64f_16s),
         ORV_EXPORT(orvsFIRSetTaps64f_16s),
         ORV_EXPORT(orvsFIRGetTaps64f_16s),
         ORV_EXPORT(orvsFIRSetDlyLine64f_16s),
         ORV_EXPORT(orvsFIRGetDlyLine64f_16s),
         ORV_EXPORT(orvsFIR64f_16s_Sfs),
         ORV_EXPORT(orvsFIR64f_16s_ISfs),
         ORV_EXPORT(orvsFIROne64f_16s_Sfs)},
        {{"64fc_16sc", FirEngine::double_precision, element_type<Orv64fc>(), element_type<Orv16sc>(), false},
         "FI26",
         32,
         ORV_EXPORT(orvsFIRGetStateSize64fc_16sc),
         ORV_EXPORT(orvsFIRInit64fc_16sc),
         ORV_EXPORT(orvsFIRInitAlloc64fc_16sc),
         ORV_EXPORT(orvsFIRFree64fc_16sc),
         ORV_EXPORT(orvsFIRSetTaps64fc_16sc),
         ORV_EXPORT(orvsFIRGetTaps64fc_16sc),
         ORV_EXPORT(orvsFIRSetDlyLine64fc_16sc),
         ORV_EXPORT(orvsFIRGetDlyLine64fc_16sc),
         ORV_EXPORT(orvsFIR64fc_16sc_Sfs),
         ORV_EXPORT(orvsFIR64fc_16sc_ISfs),
         ORV_EXPORT(orvsFIROne64fc_16sc_Sfs)},
        {{"32s", FirEngine::double_precision, element_type<Orv32s>(), element_type<Orv32s>(), false},
         "FI21",
         32,
         ORV_EXPORT(orvsFIRGetStateSize_32s),
         ORV_EXPORT(orvsFIRInit_32s),
         ORV_EXPORT(orvsFIRInitAlloc_32s),
         ORV_EXPORT(orvsFIRFree_32s),
         ORV_EXPORT(orvsFIRSetTaps_32s),
         ORV_EXPORT(orvsFIRGetTaps_32s),
         ORV_EXPORT(orvsFIRSetDlyLine64f_32s),
         ORV_EXPORT(orvsFIRGetDlyLine64f_32s),
         ORV_EXPORT(orvsFIR_32s_Sfs),
         ORV_EXPORT(orvsFIR_32s_ISfs),
         ORV_EXPORT(orvsFIROne_32s_Sfs)},
        {{"16s", FirEngine::integer, element_type<Orv16s>(), element_type<Orv16s>(), true},
         "FI29",
         0,
         ORV_EXPORT(orvsFIRGetStateSize_16s),
         ORV_EXPORT(orvsFIRInit_16s),
         ORV_EXPORT(orvsFIRInitAlloc_16s),
         ORV_EXPORT(orvsFIRFree_16s),
         ORV_EXPORT(orvsFIRSetTaps_16s),
         ORV_EXPORT(orvsFIRGetTaps_16s),
         ORV_EXPORT(orvsFIRSetDlyLine_16s),
         ORV_EXPORT(orvsFIRGetDlyLine_16s),
         ORV_EXPORT(orvsFIR_16s_Sfs),
         ORV_EXPORT(orvsFIR_16s_ISfs),
         ORV_EXPORT(orvsFIROne_16s_Sfs)},
        {{"32s_16s", FirEngine::integer, element_type<Orv32s>(), element_type<Orv16s>(), true},
         "FI09",
         0,
         ORV_EXPORT(orvsFIRGetStateSize32s_16s),
         ORV_EXPORT(orvsFIRInit32s_16s),
         ORV_EXPORT(orvsFIRInitAlloc32s_16s),
         ORV_EXPORT(orvsFIRFree32s_16s),
         ORV_EXPORT(orvsFIRSetTaps32s_16s),
         ORV_EXPORT(orvsFIRGetTaps32s_16s),
         ORV_EXPORT(orvsFIRSetDlyLine32s_16s),
         ORV_EXPORT(orvsFIRGetDlyLine32s_16s),
         ORV_EXPORT(orvsFIR32s_16s_Sfs),
         ORV_EXPORT(orvsFIR32s_16s_ISfs),
         ORV_EXPORT(orvsFIROne32s_16s_Sfs)},
        {{"32sc_16sc", FirEngine::integer, element_type<Orv32sc>(), element_type<Orv16sc>(), true},
         "FI10",
         0,
         ORV_EXPORT(orvsFIRGetStateSize32sc_16sc),
         ORV_EXPORT(orvsFIRInit32sc_16sc),
         ORV_EXPORT(orvsFIRInitAlloc32sc_16sc),
         ORV_EXPORT(orvsFIRFree32sc_16sc),
         ORV_EXPORT(orvsFIRSetTaps32sc_16sc),
         ORV_EXPORT(orvsFIRGetTaps32sc_16sc),
         ORV_EXPORT(orvsFIRSetDlyLine32sc_16sc),
         ORV_EXPORT(orvsFIRGetDlyLine32sc_16sc),
         ORV_EXPORT(orvsFIR32sc_16sc_Sfs),
         ORV_EXPORT(orvsFIR32sc_16sc_ISfs),
         ORV_EXPORT(orvsFIROne32sc_16sc_Sfs)},
        {{"32s_16s32f", FirEngine::integer, element_type<Orv32f>(), element_type<Orv16s>(), false},
         "FI09",
         0,
         ORV_EXPORT(orvsFIRGetStateSize32s_16s32f),
         ORV_EXPORT(orvsFIRInit32s_16s32f),
         ORV_EXPORT(orvsFIRInitAlloc32s_16s32f),
         ORV_EXPORT(orvsFIRFree32s_16s),
         ORV_EXPORT(orvsFIRSetTaps32s_16s32f),
         ORV_EXPORT(orvsFIRGetTaps32s_16s32f),
         ORV_EXPORT(orvsFIRSetDlyLine32s_16s),
         ORV_EXPORT(orvsFIRGetDlyLine32s_16s),
         ORV_EXPORT(orvsFIR32s_16s_Sfs),
         ORV_EXPORT(orvsFIR32s_16s_ISfs),
         ORV_EXPORT(orvsFIROne32s_16s_Sfs)},
        {{"32sc_16sc32fc", FirEngine::integer, element_type<Orv32fc>(), element_type<Orv16sc>(), false},
         "FI10",
         0,
         ORV_EXPORT(orvsFIRGetStateSize32sc_16sc32fc),
         ORV_EXPORT(orvsFIRInit32sc_16sc32fc),
         ORV_EXPORT(orvsFIRInitAlloc32sc_16sc32fc),
         ORV_EXPORT(orvsFIRFree32sc_16sc),
         ORV_EXPORT(orvsFIRSetTaps32sc_16sc32fc),
         ORV_EXPORT(orvsFIRGetTaps32sc_16sc32fc),
         ORV_EXPORT(orvsFIRSetDlyLine32sc_16sc),
         ORV_EXPORT(orvsFIRGetDlyLine32sc_16sc),
         ORV_EXPORT(orvsFIR32sc_16sc_Sfs),
         ORV_EXPORT(orvsFIR32sc_16sc_ISfs),
         ORV_EXPORT(orvsFIROne32sc_16sc_Sfs)},
    };
    return forms;
}

const std::vector<FirDirectForm>& fir_direct_forms()
{
    static const std::vector<FirDirectForm> forms = {
        {{"32f", FirEngine::single_precision, element_type<Orv32f>(), element_type<Orv32f>(), false},
         ORV_EXPORT(orvsFIR_Direct_32f),
         ORV_EXPORT(orvsFIR_Direct_32f_I),
         ORV_EXPORT(orvsFIROne_Direct_32f),
         ORV_EXPORT(orvsFIROne_Direct_32f_I)},
        {{"32fc", FirEngine::single_precision, element_type<Orv32fc>(), element_type<Orv32fc>(), false},
         ORV_EXPORT(orvsFIR_Direct_32fc),
         ORV_EXPORT(orvsFIR_Direct_32fc_I),
         ORV_EXPORT(orvsFIROne_Direct_32fc),
         ORV_EXPORT(orvsFIROne_Direct_32fc_I)},
        {{"64f", FirEngine::double_precision, element_type<Orv64f>(), element_type<Orv64f>(), false},
         ORV_EXPORT(orvsFIR_Direct_64f),
         ORV_EXPORT(orvsFIR_Direct_64f_I),
         ORV_EXPORT(orvsFIROne_Direct_64f),
         ORV_EXPORT(orvsFIROne_Direct_64f_I)},
        {{"64fc", FirEngine::double_precision, element_type<Orv64fc>(), element_type<Orv64fc>(), false},
         ORV_EXPORT(orvsFIR_Direct_64fc),
         ORV_EXPORT(orvsFIR_Direct_64fc_I),
         ORV_EXPORT(orvsFIROne_Direct_64fc),
         ORV_EXPORT(orvsFIROne_Direct_64fc_I)},
        {{"32f_16s", FirEngine::single_precision, element_type<Orv32f>(), element_type<Orv16s>(), false},
         ORV_EXPORT(orvsFIR32f_Direct_16s_Sfs),
         ORV_EXPORT(orvsFIR32f_Direct_16s_ISfs),
         ORV_EXPORT(orvsFIROne32f_Direct_16s_Sfs),
         ORV_EXPORT(orvsFIROne32f_Direct_16s_ISfs)},
        {{"32fc_16sc", FirEngine::single_precision, element_type<Orv32fc>(), element_type<Orv16sc>(), false},
         ORV_EXPORT(orvsFIR32fc_Direct_16sc_Sfs),
         ORV_EXPORT(orvsFIR32fc_Direct_16sc_ISfs),
         ORV_EXPORT(orvsFIROne32fc_Direct_16sc_Sfs),
         ORV_EXPORT(orvsFIROne32fc_Direct_16sc_ISfs)},
        {{"64f_32f", FirEngine::double_precision, element_type<Orv64f>(), element_type<Orv32f>(), false},
         ORV_EXPORT(orvsFIR64f_Direct_32f),
         ORV_EXPORT(orvsFIR64f_Direct_32f_I),
         ORV_EXPORT(orvsFIROne64f_Direct_32f),
         ORV_EXPORT(orvsFIROne64f_Direct_32f_I)},
        {{"64fc_32fc", FirEngine::double_precision, element_type<Orv64fc>(), element_type<Orv32fc>(), false},
         ORV_EXPORT(orvsFIR64fc_Direct_32fc),
         ORV_EXPORT(orvsFIR64fc_Direct_32fc_I),
         ORV_EXPORT(orvsFIROne64fc_Direct_32fc),
         ORV_EXPORT(orvsFIROne64fc_Direct_32fc_I)},
        {{"64f_32s", FirEngine::double_precision, element_type<Orv64f>(), element_type<Orv32s>(), false},
         ORV_EXPORT(orvsFIR64f_Direct_32s_Sfs),
         ORV_EXPORT(orvsFIR64f_Direct_32s_ISfs),
         ORV_EXPORT(orvsFIROne64f_Direct_32s_Sfs),
         ORV_EXPORT(orvsFIROne64f_Direct_32s_ISfs)},
        {{"64fc_32sc", FirEngine::double_precision, element_type<Orv64fc>(), element_type<Orv32sc>(), false},
         ORV_EXPORT(orvsFIR64fc_Direct_32sc_Sfs),
         ORV_EXPORT(orvsFIR64fc_Direct_32sc_ISfs),
         ORV_EXPORT(orvsFIROne64fc_Direct_32sc_Sfs),
         ORV_EXPORT(orvsFIROne64fc_Direct_32sc_ISfs)},
        {{"64f_16s", FirEngine::double_precision, element_type<Orv64f>(), element_type<Orv16s>(), false},
         ORV_EXPORT(orvsFIR64f_Direct_16s_Sfs),
         ORV_EXPORT(orvsFIR64f_Direct_16s_ISfs),
         ORV_EXPORT(orvsFIROne64f_Direct_16s_Sfs),
         ORV_EXPORT(orvsFIROne64f_Direct_16s_ISfs)},
        {{"64fc_16sc", FirEngine::double_precision, element_type<Orv64fc>(), element_type<Orv16sc>(), false},
         ORV_EXPORT(orvsFIR64fc_Direct_16sc_Sfs),
         ORV_EXPORT(orvsFIR64fc_Direct_16sc_ISfs),
         ORV_EXPORT(orvsFIROne64fc_Direct_16sc_Sfs),
         ORV_EXPORT(orvsFIROne64fc_Direct_16sc_ISfs)},
        {{"16s", FirEngine::integer, element_type<Orv16s>(), element_type<Orv16s>(), false},
         ORV_EXPORT(orvsFIR_Direct_16s_Sfs),
         ORV_EXPORT(orvsFIR_Direct_16s_ISfs),
         ORV_EXPORT(orvsFIROne_Direct_16s_Sfs),
         ORV_EXPORT(orvsFIROne_Direct_16s_ISfs)},
        {{"32s_16s", FirEngine::integer, element_type<Orv32s>(), element_type<Orv16s>(), true},
         ORV_EXPORT(orvsFIR32s_Direct_16s_Sfs),
         ORV_EXPORT(orvsFIR32s_Direct_16s_ISfs),
         ORV_EXPORT(orvsFIROne32s_Direct_16s_Sfs),
         ORV_EXPORT(orvsFIROne32s_Direct_16s_ISfs)},
        {{"32sc_16sc", FirEngine::integer, element_type<Orv32sc>(), element_type<Orv16sc>(), true},
         ORV_EXPORT(orvsFIR32sc_Direct_16sc_Sfs),
         ORV_EXPORT(orvsFIR32sc_Direct_16sc_ISfs),
         ORV_EXPORT(orvsFIROne32sc_Direct_16sc_Sfs),
         ORV_EXPORT(orvsFIROne32sc_Direct_16sc_ISfs)},
    };
    return forms;
}

namespace {

template <class Form>
const Form& named(const std::vector<Form>& forms, const std::string& name)
{
    const auto at = std::find_if(forms.begin(), forms.end(), [&](const Form& form) { return form.form == name; });
    if (at == forms.end()) throw std::invalid_argument("no form " + name);
    return *at;
}

} // namespace

const FirForm& fir_form(const std::string& name) { return named(fir_forms(), name); }
const FirDirectForm& fir_direct_form(const std::string& name) { return named(fir_direct_forms(), name); }

// ---- Values

namespace {

template <class T>
void encode(const Values& values, std::byte* bytes)
{
    for (std::size_t i = 0; i < values.size(); ++i) {
        const T component = static_cast<T>(values[i]);
        std::memcpy(bytes + i * sizeof(T), &component, sizeof(T));
    }
}

template <class T>
void decode(const std::byte* bytes, Values& values)
{
    for (std::size_t i = 0; i < values.size(); ++i) {
        T component;
        std::memcpy(&component, bytes + i * sizeof(T), sizeof(T));
        values[i] = component;
    }
}

std::ptrdiff_t offset(const ElementType& type, std::size_t elements)
{
    return static_cast<std::ptrdiff_t>(elements) * type.components;
}

} // namespace

std::vector<std::byte> encoded(const ElementType& type, const Values& values)
{
    std::vector<std::byte> bytes(values.size() * type.component_size);
    if (type.number == Number::binary_float) {
        if (type.component_size == 4) encode<Orv32f>(values, bytes.data());
        else encode<Orv64f>(values, bytes.data());
    } else {
        if (type.component_size == 2) encode<Orv16s>(values, bytes.data());
        else encode<Orv32s>(values, bytes.data());
    }
    return bytes;
}

Values decoded(const ElementType& type, const std::byte* elements, std::size_t n)
{
    Values values(n * static_cast<std::size_t>(type.components));
    if (type.number == Number::binary_float) {
        if (type.component_size == 4) decode<Orv32f>(elements, values);
        else decode<Orv64f>(elements, values);
    } else {
        if (type.component_size == 2) decode<Orv16s>(elements, values);
        else decode<Orv32s>(elements, values);
    }
    return values;
}

Values drawn(Random& random, const ElementType& type, std::size_t n, double magnitude)
{
    Values values(n * static_cast<std::size_t>(type.components));
    for (double& value : values) {
        const double fraction = std::ldexp(static_cast<double>(random.bits() >> 11), -52) - 1; // -1 to 1
        value = fraction * magnitude;
        if (type.number != Number::binary_float) value = std::nearbyint(value);
        else if (type.component_size == 4) value = static_cast<float>(value);
    }
    return values;
}

Values part(const ElementType& type, const Values& values, std::size_t first, std::size_t n)
{
    const auto begin = values.begin() + offset(type, first);
    return {begin, begin + offset(type, n)};
}

Values reversed(const ElementType& type, const Values& values)
{
    Values turned;
    for (std::size_t i = count(type, values); i-- > 0;)
        turned.insert(turned.end(), values.begin() + offset(type, i), values.begin() + offset(type, i + 1));
    return turned;
}

Values newest(const ElementType& type, const Values& past, const Values& x, std::size_t n)
{
    Values all = reversed(type, x);
    all.insert(all.end(), past.begin(), past.end());
    all.resize(n * static_cast<std::size_t>(type.components));
    return all;
}

// ---- What filters must compute

namespace {

double largest(const Values& values)
{
    double most = 0;
    for (const double value : values) most = std::max(most, std::abs(value));
    return most;
}

FirIntegerTaps normalized(const Values& taps, int factor)
{
    auto most = static_cast<Orv64s>(largest(taps));
    int halvings = 0;
    for (; most > 32766; most /= 2) ++halvings;
    FirIntegerTaps stored = {taps, factor + halvings};
    for (double& tap : stored.taps) tap = std::floor(std::ldexp(tap, -halvings));
    return stored;
}

FirIntegerTaps halved_if_lowest(const Values& taps, int factor)
{
    FirIntegerTaps stored = {taps, factor};
    if (std::count(taps.begin(), taps.end(), -32768.0) == 0) return stored;
    for (double& tap : stored.taps) tap = std::floor(tap / 2);
    ++stored.factor;
    return stored;
}

FirIntegerTaps quantized(const Values& taps)
{
    double most = largest(taps);
    int exponent = 0;
    if (most > 32767) {
        for (; most > 32767 && exponent < 33; most /= 2) ++exponent;
    } else {
        for (; 2 * most < 32767 && exponent > -33; most *= 2) --exponent;
    }
    FirIntegerTaps stored = {taps, exponent};
    for (double& tap : stored.taps) tap = std::clamp(std::round(std::ldexp(tap, -exponent)), -32767.0, 32767.0);
    return stored;
}

/// The stream from T-1 samples before x on, oldest first, component k of each.
std::vector<long double> line(const FirTypes& form, std::size_t taps_len, const Values& past, const Values& x, int k)
{
    const auto components = static_cast<std::size_t>(form.samples.components);
    const std::size_t n = x.size() / components;
    std::vector<long double> samples(taps_len - 1 + n);
    for (std::size_t i = 0; i + 1 < taps_len && i < past.size() / components; ++i)
        samples[taps_len - 2 - i] = past[i * components + static_cast<std::size_t>(k)];
    for (std::size_t i = 0; i < n; ++i) samples[taps_len - 1 + i] = x[i * components + static_cast<std::size_t>(k)];
    return samples;
}

std::vector<long double> component(const FirTypes& form, const Values& values, int k)
{
    std::vector<long double> some;
    for (std::size_t i = static_cast<std::size_t>(k); i < values.size();
         i += static_cast<std::size_t>(form.taps.components))
        some.push_back(values[i]);
    return some;
}

/// sums[n * stride] += sign * sum of taps[k] * samples[n + T-1 - k]
void add_products(const std::vector<long double>& taps, const std::vector<long double>& samples, int sign,
                  std::size_t stride, long double* sums)
{
    const std::size_t taps_len = taps.size();
    for (std::size_t n = 0; n + taps_len <= samples.size(); ++n) {
        long double even = 0, odd = 0; // two chains of additions take half the time
        const long double* newest = &samples[n + taps_len - 1];
        std::size_t k = 0;
        for (; k + 1 < taps_len; k += 2) {
            even += taps[k] * newest[-static_cast<std::ptrdiff_t>(k)];
            odd += taps[k + 1] * newest[-static_cast<std::ptrdiff_t>(k) - 1];
        }
        if (k < taps_len) even += taps[k] * newest[-static_cast<std::ptrdiff_t>(k)];
        sums[n * stride] += static_cast<long double>(sign) * (even + odd);
    }
}

/// In 64 bits of precision: exact for the integer filters.
std::vector<long double> sums_of_products(const FirTypes& form, const Values& taps, const Values& past, const Values& x)
{
    std::vector<long double> sums(x.size());
    const std::size_t taps_len = count(form.taps, taps);
    const auto re = line(form, taps_len, past, x, 0);
    const auto taps_re = component(form, taps, 0);
    if (!form.is_complex()) {
        add_products(taps_re, re, 1, 1, sums.data());
        return sums;
    }
    const auto im = line(form, taps_len, past, x, 1);
    const auto taps_im = component(form, taps, 1);
    add_products(taps_re, re, 1, 2, sums.data());
    add_products(taps_im, im, -1, 2, sums.data());
    add_products(taps_re, im, 1, 2, sums.data() + 1);
    add_products(taps_im, re, 1, 2, sums.data() + 1);
    return sums;
}

/// How far a floating sum may be off, whatever the road.
long double tolerance(const FirTypes& form, const Values& taps, const Values& past, const Values& x, int fft_taps)
{
    const auto taps_len = static_cast<double>(count(form.taps, taps));
    const long double epsilon = form.engine == FirEngine::single_precision ? 0x1p-23L : 0x1p-52L;
    long double sum = 0, energy = 0;
    for (const double tap : taps) {
        sum += std::abs(tap);
        energy += static_cast<long double>(tap) * tap;
    }
    const long double most = std::max(largest(past), largest(x)) * form.samples.components;
    long double direct = epsilon * (taps_len / 4 + 4) * sum * most;
    if (fft_taps == 0 || taps_len < fft_taps) return direct;
    const double order = std::ceil(std::log2(taps_len + 1)) + 1;
    return direct + 2 * epsilon * order * std::sqrt(energy * std::exp2(order)) * most;
}

long double saturated(const ElementType& type, long double y)
{
    const long double highest = type.component_size == 2 ? 0x7FFF : 0x7FFFFFFF;
    return std::clamp(y, -highest - 1, highest);
}

std::string text(long double value)
{
    char digits[40];
    std::snprintf(digits, sizeof digits, "%.21Lg", value);
    return digits;
}

void note(const AnyExport& f, const FirTypes& form, const Values& got)
{
    const std::vector<std::byte> bytes = encoded(form.samples, got);
    look_at(f.name(), form.samples, bytes.data(), count(form.samples, got));
}

} // namespace

FirIntegerTaps integer_taps(const FirForm& form, const Values& taps, int factor)
{
    if (form.taps.number == Number::binary_float) return quantized(taps);
    return form.taps.component_size == 2 ? halved_if_lowest(taps, factor) : normalized(taps, factor);
}

double shifted_sum(Orv64s sum, int left_shift)
{
    const auto low = static_cast<Orv32u>(static_cast<Orv64u>(sum));
    auto wrapped = Orv64s{static_cast<Orv32s>(low)};
    if (left_shift > 0) {
        wrapped = static_cast<Orv32s>(low << left_shift);
    } else if (left_shift < 0) {
        const int right = -left_shift;
        wrapped = (wrapped + (Orv64s{1} << (right - 1)) - 1 + ((wrapped >> right) & 1)) >> right;
    }
    return static_cast<double>(std::clamp<Orv64s>(wrapped, -32768, 32767));
}

std::vector<Orv64s> integer_sums(const FirTypes& form, const Values& taps, const Values& past, const Values& x)
{
    std::vector<Orv64s> sums;
    for (const long double sum : sums_of_products(form, taps, past, x)) sums.push_back(static_cast<Orv64s>(sum));
    return sums;
}

FirBounds fir_bounds(const FirTypes& form, const Values& taps, int factor, const Values& past, const Values& x,
                     int scale, int fft_taps, bool exact)
{
    FirBounds bounds;
    if (form.is_integer()) {
        // Limits of the shift are far away, and so is an overflow of the difference.
        const int shift = static_cast<int>(std::clamp(Orv64s{factor} - scale, Orv64s{-31}, Orv64s{31}));
        for (const Orv64s sum : integer_sums(form, taps, past, x)) bounds.low.push_back(shifted_sum(sum, shift));
        bounds.high = bounds.low;
        return bounds;
    }
    const long double slack = exact ? 0 : tolerance(form, taps, past, x, fft_taps);
    const bool to_single = !exact && form.samples == ElementType{Number::binary_float, 4, form.samples.components};
    for (const long double y : sums_of_products(form, taps, past, x)) {
        const long double off = slack + (to_single ? std::abs(y) * 0x1p-24L : 0);
        long double low = y - off, high = y + off;
        if (form.is_scaled()) {
            low = saturated(form.samples, std::nearbyint(std::ldexp(low, -scale)));
            high = saturated(form.samples, std::nearbyint(std::ldexp(high, -scale)));
        }
        bounds.low.push_back(low);
        bounds.high.push_back(high);
    }
    return bounds;
}

bool expect_within(const AnyExport& f, const FirTypes& form, const Values& got, const FirBounds& bounds,
                   const std::string& what)
{
    note(f, form, got);
    if (got.size() > bounds.low.size()) {
        ADD_FAILURE() << f.name() << ", " << what << ": " << got.size() << " components, more than "
                      << bounds.low.size();
        return false;
    }
    for (std::size_t i = 0; i < got.size(); ++i) {
        if (got[i] >= bounds.low[i] && got[i] <= bounds.high[i]) continue;
        ADD_FAILURE() << f.name() << ", " << what << ": component " << i << " of " << got.size() << " is "
                      << text(got[i]) << ", not within " << text(bounds.low[i]) << " ... " << text(bounds.high[i]);
        return false;
    }
    return true;
}

bool expect_same(const AnyExport& f, const FirTypes& form, const Values& got, const Values& want,
                 const std::string& what)
{
    note(f, form, got);
    for (std::size_t i = 0; i < std::max(got.size(), want.size()); ++i) {
        if (i < got.size() && i < want.size() && std::bit_cast<Orv64u>(got[i]) == std::bit_cast<Orv64u>(want[i]))
            continue;
        ADD_FAILURE() << f.name() << ", " << what << ": component " << i << " of " << got.size() << " is "
                      << (i < got.size() ? text(got[i]) : "missing") << ", not "
                      << (i < want.size() ? text(want[i]) : "there");
        return false;
    }
    return true;
}

bool expect_status(const AnyExport& f, OrvStatus got, OrvStatus want, const std::string& what)
{
    const Orv32s value = got;
    look_at(f.name(), &value, 1);
    EXPECT_EQ(got, want) << f.name() << (what.empty() ? "" : ", ") << what;
    return got == want;
}

// ---- Filters

std::size_t fir_state_size(const FirForm& form, std::size_t taps_len)
{
    int size = 0;
    const OrvStatus status = form.get_size(static_cast<int>(taps_len), &size);
    EXPECT_EQ(status, orvOk) << form.get_size.name() << ", " << taps_len << " taps";
    return static_cast<std::size_t>(size);
}

FirFilter::FirFilter(const FirForm& form, const Values& taps, const FirStart& start)
    : form_(form), taps_len_(count(form.taps, taps))
{
    const auto coefficients = encoded(form.taps, taps);
    const auto past = encoded(form.samples, start.past);
    const std::byte* delay = past.empty() ? nullptr : past.data();
    const int n = static_cast<int>(taps_len_);
    const OrvStatus status = form.has_factor ? form.init_alloc(&state_, coefficients.data(), n, start.factor, delay)
                                             : form.init_alloc(&state_, coefficients.data(), n, delay);
    expect_status(form.init_alloc, status, orvOk, std::to_string(n) + " taps");
}

FirFilter::FirFilter(const FirForm& form, const Values& taps, const FirStart& start, Placement placement)
    : form_(form),
      taps_len_(count(form.taps, taps)),
      block_(std::make_unique<GuardedArray<Orv8u>>(fir_state_size(form, taps_len_), placement))
{
    const auto coefficients = encoded(form.taps, taps);
    const auto past = encoded(form.samples, start.past);
    const std::byte* delay = past.empty() ? nullptr : past.data();
    const int n = static_cast<int>(taps_len_);
    const OrvStatus status = form.has_factor
                                 ? form.init(&state_, coefficients.data(), n, start.factor, delay, block_->data())
                                 : form.init(&state_, coefficients.data(), n, delay, block_->data());
    expect_status(form.init, status, orvOk, std::to_string(n) + " taps");
}

FirFilter::~FirFilter()
{
    if (state_) expect_status(form_.free, form_.free(state_), orvOk);
    if (block_) expect_no_damage("Free");
}

Values FirFilter::filter(const Values& x, int scale, const FirPlaces& places)
{
    const auto bytes = encoded(form_.samples, x);
    const std::size_t n = count(form_.samples, x);
    GuardedBlock source(bytes.size()), destination(bytes.size());
    std::byte* src = source.place(bytes.size(), places.source);
    std::byte* dst = destination.place(bytes.size(), places.destination);
    std::copy(bytes.begin(), bytes.end(), src);
    const CallNote note([&] { return std::to_string(taps_len_) + " taps, " + std::to_string(n) + " samples"; });
    const OrvStatus status = form_.filter(src, dst, static_cast<int>(n), state_, scale);
    EXPECT_EQ(status, orvOk) << form_.filter.name() << ", " << taps_len_ << " taps, " << n << " samples";
    EXPECT_EQ(destination.damage(), "") << form_.filter.name() << ", " << taps_len_ << " taps, " << n << " samples";
    EXPECT_TRUE(std::equal(bytes.begin(), bytes.end(), src)) << form_.filter.name() << " has changed its source";
    return decoded(form_.samples, dst, n);
}

Values FirFilter::filter_in_place(const Values& x, int scale, Placement placement)
{
    const auto bytes = encoded(form_.samples, x);
    const std::size_t n = count(form_.samples, x);
    GuardedBlock array(bytes.size());
    std::byte* src_dst = array.place(bytes.size(), placement);
    std::copy(bytes.begin(), bytes.end(), src_dst);
    const CallNote note([&] { return std::to_string(taps_len_) + " taps, " + std::to_string(n) + " samples"; });
    const OrvStatus status = form_.filter_in_place(src_dst, static_cast<int>(n), state_, scale);
    EXPECT_EQ(status, orvOk) << form_.filter_in_place.name() << ", " << taps_len_ << " taps, " << n << " samples";
    EXPECT_EQ(array.damage(), "") << form_.filter_in_place.name() << ", " << taps_len_ << " taps, " << n << " samples";
    return decoded(form_.samples, src_dst, n);
}

Values FirFilter::one_by_one(const Values& x, int scale)
{
    const auto bytes = encoded(form_.samples, x);
    const std::size_t size = form_.samples.size();
    GuardedBlock destination(size);
    std::byte* dst = destination.place(size, before_guard);
    Values y;
    for (std::size_t i = 0; i < bytes.size(); i += size) {
        const AnyArgument arguments[] = {AnyArgument::of_bytes(&bytes[i], size), AnyArgument::of(dst),
                                         AnyArgument::of(state_), AnyArgument::of(scale)};
        const OrvStatus status = form_.one.callee()->call(arguments);
        EXPECT_EQ(status, orvOk) << form_.one.name();
        const Values one = decoded(form_.samples, dst, 1);
        y.insert(y.end(), one.begin(), one.end());
    }
    EXPECT_EQ(destination.damage(), "") << form_.one.name();
    return y;
}

FirIntegerTaps FirFilter::taps() const
{
    int factor = 0;
    const std::size_t bytes = taps_len_ * form_.taps.size();
    GuardedBlock array(bytes);
    std::byte* taps = array.place(bytes, before_guard);
    expect_status(form_.get_taps, form_.get_taps(state_, taps, &factor), orvOk);
    EXPECT_EQ(array.damage(), "") << form_.get_taps.name();
    look_at(form_.get_taps.name(), form_.taps, taps, taps_len_);
    look_at(form_.get_taps.name(), &factor, 1);
    return {decoded(form_.taps, taps, taps_len_), factor};
}

void FirFilter::set_taps(const Values& taps, int factor)
{
    const auto bytes = encoded(form_.taps, taps);
    GuardedBlock array(bytes.size());
    std::byte* coefficients = array.place(bytes.size(), before_guard);
    std::copy(bytes.begin(), bytes.end(), coefficients);
    expect_status(form_.set_taps, form_.set_taps(coefficients, state_, factor), orvOk);
}

Values FirFilter::delay() const
{
    const std::size_t bytes = taps_len_ * form_.samples.size();
    GuardedBlock array(bytes);
    std::byte* past = array.place(bytes, before_guard);
    expect_status(form_.get_delay, form_.get_delay(state_, past), orvOk);
    EXPECT_EQ(array.damage(), "") << form_.get_delay.name();
    look_at(form_.get_delay.name(), form_.samples, past, taps_len_);
    return decoded(form_.samples, past, taps_len_);
}

void FirFilter::set_delay(const Values& past)
{
    const auto bytes = encoded(form_.samples, past);
    GuardedBlock array(bytes.size());
    std::byte* line = bytes.empty() ? nullptr : array.place(bytes.size(), before_guard);
    std::copy(bytes.begin(), bytes.end(), line);
    expect_status(form_.set_delay, form_.set_delay(state_, line), orvOk);
}

void FirFilter::expect_no_damage(const std::string& what) const
{
    EXPECT_EQ(block_->damage(), "") << form_.init.name() << ", " << taps_len_ << " taps, " << what;
}

std::vector<std::byte> FirFilter::memory() const { return bytes_of(block_->elements()); }

} // namespace orvtest
