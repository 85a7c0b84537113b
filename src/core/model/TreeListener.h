#pragma once

#include "Notifier.h"

class CResFolder;
class CResModel;

/// Who holds on to nodes of a model's tree. Registers with the model and takes itself off; may outlive it.
class ITreeListener
{
public:
    /// All nodes below `folder` are about to be destroyed, and so is `folder` where it is deleted and not just emptied:
    /// let go of them. A reload of the strings announces the Strings folder, whose table it changes all over.
    virtual void TreeGoes(const CResFolder &folder) = 0;

protected:
    explicit ITreeListener(CResModel &model);
    ~ITreeListener() = default;

private:
    Notifier<const CResFolder &>::Listener registration;
};
