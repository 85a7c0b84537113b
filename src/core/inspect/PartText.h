// SPDX-License-Identifier: MIT
#pragma once

#include "PackParts.h"

class JsonWriter;
class PackNames;

/// Returns what a part is, for a listing (UTF-8): "item 7 ID_LOGO", "language 0 string 3 ID_TITLE", "padding".
[[nodiscard]] QByteArray PartText(const PackedPart &part, const PackNames &names);

/// Writes what a part is into an open object: `kind`, and as far as it has them `language`, `number`, `id` and `name`.
void WritePart(JsonWriter &json, const PackedPart &part, const PackNames &names);
