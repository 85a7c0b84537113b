// SPDX-License-Identifier: MIT
#include "ProjectConfig.h"

#include "Environment.h"
#include "Paths.h"
#include "Xml.h"

namespace
{

/// Returns the number that an element's text begins with; 0 for an element without a number.
qint32 NumberIn(const TiXmlElement &element)
{
    const char *text = element.GetText();
    return text ? LeadingNumber(QString::fromUtf8(text)) : 0;
}

void ReadResolution(const TiXmlElement &resolution, ProjectConfig &config)
{
    bool hasWidth = false;
    bool hasHeight = false;
    for (auto *child = resolution.FirstChildElement(); child && !(hasWidth && hasHeight);
         child = child->NextSiblingElement()) {
        if (child->ValueStr() == "Width") {
            config.width = NumberIn(*child);
            hasWidth = true;
        } else if (child->ValueStr() == "Height") {
            config.height = NumberIn(*child);
            hasHeight = true;
        }
    }
}

void ReadApplication(const TiXmlElement &application, ProjectConfig &config)
{
    for (auto *child = application.FirstChildElement(); child; child = child->NextSiblingElement()) {
        if (child->ValueStr() == "zepversion") {
            config.zepVersion = NumberIn(*child);
        } else if (child->ValueStr() == "tarvo") {
            const char *text = child->GetText();
            config.tarvoChecked = text && EqualsNoCase(QString::fromUtf8(text), u"checked");
        }
    }
}

} // namespace

void ReadConfig(const Environment &env, const QString &path, ProjectConfig &config)
{
    config.file = env.settings.String("Path", "proj_cfg", ".\\config.xml");
    if (!MakeAbsolute(config.file, DirectoryOf(path))) {
        config.problem = QStringLiteral("would have a path of more than 520 characters");
        return;
    }
    TiXmlDocument document;
    if (const int code = LoadXml(env, config.file, document)) {
        config.problem = code == -1 ? QStringLiteral("is missing or can't be read")
                                    : QStringLiteral("is not well-formed (line %1)").arg(qMax(1, document.ErrorRow()));
        return;
    }
    const TiXmlElement *first = document.FirstChildElement();
    bool hasResolution = false;
    bool hasApplication = false;
    for (auto *child = first ? first->FirstChildElement() : nullptr; child && !(hasResolution && hasApplication);
         child = child->NextSiblingElement()) {
        if (child->ValueStr() == "resolution") {
            ReadResolution(*child, config);
            hasResolution = true;
        } else if (child->ValueStr() == "zxa") {
            ReadApplication(*child, config);
            hasApplication = true;
        }
    }
}
