// SPDX-License-Identifier: MIT
#pragma once

class QDialog;
class QDialogButtonBox;

/// Makes a dialog's buttons OK, which is the default, and Cancel. They are connected to its `accept` and `reject`.
[[nodiscard]] QDialogButtonBox *MakeOkCancel(QDialog &dialog);
