// SPDX-License-Identifier: MIT
#pragma once

#include "Notifier.h"

class CResFolder;
class CResModel;

/// The base of classes that keep pointers to nodes of a model's tree. It registers with the model in its constructor
/// and unregisters in its destructor. It may outlive the model.
class ITreeListener
{
public:
    /// Called before all nodes below `folder` are destroyed, and `folder` too if it is deleted and not only emptied:
    /// drop all pointers to them. A reload of the strings calls this with the Strings folder, because it changes the
    /// whole string table.
    virtual void TreeGoes(const CResFolder &folder) = 0;

protected:
    explicit ITreeListener(CResModel &model);
    ~ITreeListener() = default;

private:
    Notifier<const CResFolder &>::Listener registration;
};
