// SPDX-License-Identifier: MIT
#include "CheckFacts.h"

#include "CResDoc.h"
#include "CheckInput.h"
#include "LayoutSurvey.h"
#include "LoadRules.h"
#include "OpeningCheck.h"
#include "SortedIds.h"

#include <algorithm>

namespace
{

/// Returns whether the load has reported a fault at that place of a layout file, or one because of which the whole file
/// wasn't read.
bool IsReportedByLoad(const Finding &finding, const std::vector<Finding> &loaded)
{
    return std::any_of(loaded.begin(), loaded.end(), [&](const Finding &other) {
        return IsLayoutFault(other) && other.file == finding.file && (other.line == 0 || other.line == finding.line);
    });
}

} // namespace

const std::vector<Finding> &CheckFacts::SilentReasons(const CheckInput &input)
{
    if (!silentReasons) {
        CResDoc &document = input.document;
        silentReasons = OpeningCheck(document.env, document.tables, document.PathName(), &document).SilentReasons();
    }
    return *silentReasons;
}

const std::vector<Finding> &CheckFacts::LayoutFindings(const CheckInput &input)
{
    if (layoutFindings)
        return *layoutFindings;
    layoutFindings.emplace();
    for (CheckedLayoutFile &file : CheckLayoutsOf(input.document)) {
        // The load has reported what is wrong with the catalogue.
        if (file.listed.isEmpty() || !ChecksScreen(input, file.resolution))
            continue;
        for (Finding &finding : file.findings) {
            if (!IsReportedByLoad(finding, input.loaded))
                layoutFindings->push_back(std::move(finding));
        }
    }
    return *layoutFindings;
}

const FileSurvey &CheckFacts::Files(const CheckInput &input)
{
    if (!files)
        files = std::make_shared<FileSurvey>(input);
    return *files;
}

const SourceNames &CheckFacts::Sources(const CheckInput &input)
{
    if (!sources)
        sources = ReadSources(SourceRequestOf(input));
    return *sources;
}

const std::vector<IDRecord *> &CheckFacts::Ids(const CheckInput &input)
{
    if (!ids)
        ids = SortedIds(input.document.ids);
    return *ids;
}
