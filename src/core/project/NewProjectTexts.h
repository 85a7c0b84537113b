// SPDX-License-Identifier: MIT
#pragma once

#include "NewProject.h"

// The texts of those files of a new project that a save doesn't write.

[[nodiscard]] QByteArray ConfigText(const ScreenSize &screen);
[[nodiscard]] QByteArray IdeProjectText(const NewProjectChoice &choice);
/// Every key that the check knows, commented out.
[[nodiscard]] QByteArray CheckSettingsText(const NewProjectChoice &choice);
/// `headers` is the folder of the generated headers, relative to the project's folder with "/"; empty if it is
/// somewhere else.
[[nodiscard]] QByteArray GitIgnoreText(const NewProjectChoice &choice, const QString &headers);
/// `strings` is the pattern of the project's string files, relative to its folder with "/".
[[nodiscard]] QByteArray GitAttributesText(GitForm form, const QString &strings);
[[nodiscard]] QByteArray CMakeListsText(const NewProjectChoice &choice);
[[nodiscard]] QByteArray ToolchainText();
[[nodiscard]] QByteArray MainText(const NewProjectChoice &choice);
