#pragma once

#include <string_view>

namespace qxmix {

/// The files in pages/, put into the tool when it is built. kPageHtml is what all pages have in
/// common; {{name}} in it stands for a part that is filled in.
extern const std::string_view kPageHtml;
extern const std::string_view kPartsCss;
extern const std::string_view kStandaloneScript;
extern const std::string_view kPartsScript;
extern const std::string_view kPlotsCss;
extern const std::string_view kPlotsScript;
extern const std::string_view kMapHtml;
extern const std::string_view kMapCss;
extern const std::string_view kMapModelScript;
extern const std::string_view kMapGridScript;
extern const std::string_view kMapTablesScript;
extern const std::string_view kMapStartScript;
extern const std::string_view kJournalHtml;
extern const std::string_view kJournalScript;
extern const std::string_view kFleetHtml;
extern const std::string_view kFleetCss;
extern const std::string_view kFleetScript;
extern const std::string_view kSimHtml;
extern const std::string_view kSimCss;
extern const std::string_view kSimModelScript;
extern const std::string_view kSimCurvesScript;
extern const std::string_view kSimPanelsScript;
extern const std::string_view kSimTablesScript;
extern const std::string_view kSimStartScript;
extern const std::string_view kFillHtml;
extern const std::string_view kFillCss;
extern const std::string_view kFillModelScript;
extern const std::string_view kFillPlotsScript;
extern const std::string_view kFillTablesScript;
extern const std::string_view kFillStartScript;

}  // namespace qxmix
