#include <algorithm>

#include "console/verify/verify.h"

namespace verify {
namespace {

constexpr char kHead[] =
    "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\"><title>Maker Checker: "
    "verification</title>\n<style>body{font:15px sans-serif;margin:2em}td{padding:2px "
    "12px;border-bottom:1px solid #ccc}img{max-width:100%;border:1px solid "
    "#888}pre{background:#eee;padding:8px;white-space:pre-wrap}.failed{color:#b00000;font-weight:"
    "bold}</style></head><body>\n";

std::string escaped(const std::string& text) {
    std::string html;
    for (const char letter : text) {
        if (letter == '<')
            html += "&lt;";
        else if (letter == '&')
            html += "&amp;";
        else
            html += letter;
    }
    return html;
}

std::string row(const std::string& name, const std::string& value, const std::string& more = {}) {
    return "<tr><td>" + escaped(name) + "</td><td" +
           (value.starts_with("failed") ? " class=\"failed\">" : ">") + escaped(value) +
           "</td><td>" + more + "</td></tr>\n";
}

std::string details(const Result& result) {
    if (result.passed && result.pictures.empty()) return {};
    std::string html = "<h2>" + escaped(utf8(result.name)) + "</h2>\n";
    if (!result.passed) html += "<pre>" + escaped(utf8(wide(result.output))) + "</pre>\n";
    for (const auto& [name, png] : result.pictures)
        html += "<h3>" + escaped(name) + "</h3>\n" +
                (png.empty() ? "<p class=\"failed\">failed: no picture</p>\n"
                             : "<img alt=\"\" src=\"data:image/png;base64," + png + "\">\n");
    return html;
}

}  // namespace

std::string utf8(const std::wstring& text) {
    const int size = static_cast<int>(text.size());
    std::string bytes(text.size() * 3, '\0');
    bytes.resize(static_cast<std::size_t>(
        WideCharToMultiByte(CP_UTF8, 0, text.data(), size, bytes.data(),
                            static_cast<int>(bytes.size()), nullptr, nullptr)));
    return bytes;
}

std::wstring wide(const std::string& text) {
    const int size = static_cast<int>(text.size());
    std::wstring units(text.size(), L'\0');
    units.resize(static_cast<std::size_t>(
        MultiByteToWideChar(CP_ACP, 0, text.data(), size, units.data(), size)));
    return units;
}

std::string page(const Facts& facts, const std::vector<Result>& results) {
    const auto failed = std::ranges::count(results, false, &Result::passed);
    std::string html = kHead;
    html += "<h1>Maker Checker: " + std::to_string(results.size() - static_cast<size_t>(failed)) +
            " passed, " + std::to_string(failed) + " failed</h1>\n<table>\n";
    for (const auto& [name, value] : facts) html += row(name, value);
    html += "</table>\n<h2>Results</h2>\n<table>\n";
    for (const Result& result : results)
        html += row(utf8(result.name), result.passed ? "passed" : "failed: " + result.why,
                    std::to_string(result.milliseconds / 1000) + " s");
    html += "</table>\n";
    for (const Result& result : results) html += details(result);
    return html + "</body></html>\n";
}

}  // namespace verify
