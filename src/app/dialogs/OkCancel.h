#pragma once

class QDialog;
class QDialogButtonBox;

/// The buttons OK, which is the default, and Cancel of a dialog, connected to its `accept` and `reject`.
[[nodiscard]] QDialogButtonBox *MakeOkCancel(QDialog &dialog);
