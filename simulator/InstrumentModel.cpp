#include "simulator/InstrumentModel.h"

#include "simulator/ScpiHeader.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

namespace {

/// Function and measure headers in the order of MeasureFunction.
struct FunctionHeaders {
    std::string_view Select;
    std::string_view Measure;
};

constexpr std::array<FunctionHeaders, MeasureFunctionCount> Headers = {{
    {":FUNCtion:VOLTage:DC", ":MEASure:VOLTage:DC?"},
    {":FUNCtion:VOLTage:AC", ":MEASure:VOLTage:AC?"},
    {":FUNCtion:CURRent:DC", ":MEASure:CURRent:DC?"},
    {":FUNCtion:CURRent:AC", ":MEASure:CURRent:AC?"},
    {":FUNCtion:RESIstance", ":MEASure:RESIstance?"},
    {":FUNCtion:FRESistance", ":MEASure:FRESistance?"},
    {":FUNCtion:CONTinuity", ":MEASure:CONTinuity?"},
    {":FUNCtion:DIODe", ":MEASure:DIODe?"},
    {":FUNCtion:VOLTage:DC:RATIo", ":MEASure:VOLTage:DC:RATIo?"},
    {":FUNCtion:FREQuency", ":MEASure:FREQuency?"},
}};

std::string_view WithoutLineEnd(std::string_view line)
{
    if (line.ends_with('\n'))
        line.remove_suffix(1);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

std::string_view WithoutBlanks(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::string Identification(const InstrumentIdentity &identity)
{
    return identity.Maker + ',' + identity.Model + ',' + identity.Serial + ',' + identity.Firmware + '\n';
}

std::string MeasureReply(InstrumentModel &model, MeasureFunction function)
{
    model.Function = function;
    if (model.Faults.RawReply)
        return *model.Faults.RawReply;
    if (model.Faults.OverloadReply != Overload::None)
        return std::string(OverloadText(model.Faults.OverloadReply)) + '\n';
    const double value = model.Faults.Reading ? *model.Faults.Reading : SampleSignal(model.Signals, function);
    return ReadingText(value) + '\n';
}

/// Runs a command without surrounding blanks. The two handshake lines need no branch of their own: they are accepted
/// and answered by nothing, as any unknown line is.
std::optional<std::string> Run(InstrumentModel &model, std::string_view command)
{
    if (EqualInAnyCase(command, "*IDN?"))
        return Identification(model.Identity);
    for (int index = 0; index < MeasureFunctionCount; ++index) {
        const auto function = static_cast<MeasureFunction>(index);
        if (MatchesScpiHeader(Headers[index].Measure, command))
            return MeasureReply(model, function);
        if (MatchesScpiHeader(Headers[index].Select, command)) {
            model.Function = function;
            return std::nullopt;
        }
    }
    return std::nullopt;
}

bool SwallowsReply(InstrumentFaults &faults)
{
    if (faults.SilentReplies > 0) {
        --faults.SilentReplies;
        return true;
    }
    return faults.SilentReplies < 0;
}

} // namespace

InstrumentModel MakeInstrumentModel(SignalSource source)
{
    InstrumentModel model;
    model.Signals = std::move(source);
    return model;
}

std::optional<std::string> ExecuteLine(InstrumentModel &model, std::string_view line)
{
    line = WithoutLineEnd(line);
    if (model.Lines.size() < RecordedLineLimit)
        model.Lines.emplace_back(line);
    std::optional<std::string> reply = Run(model, WithoutBlanks(line));
    if (reply && SwallowsReply(model.Faults))
        return std::nullopt;
    return reply;
}

std::optional<std::int32_t> ReceiveVendorRequest(InstrumentModel &model, int request, int value, int index,
                                                 std::span<const std::uint8_t> data)
{
    if (request < FirstVendorRequest || request > LastVendorRequest)
        return std::nullopt;
    const std::int32_t status = model.Faults.VendorStatus.at(request - FirstVendorRequest);
    if (model.VendorRequests.size() < RecordedRequestLimit)
        model.VendorRequests.push_back({request, value, index, {data.begin(), data.end()}, status});
    return status;
}

std::string ReadingText(double value)
{
    std::array<char, 32> digits;
    // Not printf: its decimal point is the locale's, and the model may live in a program that has set one.
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::scientific, 6);
    std::string text(digits.data(), end.ptr);
    std::ranges::replace(text, 'e', 'E');
    return std::signbit(value) ? text : '+' + text;
}

std::string_view OverloadText(Overload overload)
{
    switch (overload) {
    case Overload::None:
        break;
    case Overload::Minus8888:
        return "-8888";
    case Overload::Minus7777:
        return "-7777";
    case Overload::Plus9E15:
        return "+9.000000E+15";
    case Overload::Minus9E15:
        return "-9.000000E+15";
    }
    return {};
}
