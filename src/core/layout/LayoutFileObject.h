// SPDX-License-Identifier: MIT
#pragma once

#include "ComponentObject.h"
#include "IDPool.h"

#include <list>
#include <unordered_map>

class Environment;
class TiXmlDocument;
class TiXmlElement;

/// Why a layout file didn't load or wasn't saved; 0 is success.
enum LayoutCode : int
{
    LAYOUT_NOT_OPENED = -1,
    LAYOUT_NOT_WELL_FORMED = -2,
    LAYOUT_NOT_WRITTEN = -3,
    LAYOUT_NO_PATH = -4, ///< to save to
    LAYOUT_NO_ROOT = -1500,
    LAYOUT_WRONG_ROOT = -1502,
    LAYOUT_WRONG_CHILD = -1503, ///< of the root
    LAYOUT_NO_ID = -1505,
    LAYOUT_ID_REFUSED = -1506,        ///< it is taken
    LAYOUT_CANT_BE_READ_BACK = -1512, ///< a component that a file can't hold: too deep, too many attributes, no name
};

/// One layout: the components of one screen. Owns them.
class LayoutObject
{
public:
    /// Holds a reference to the ID.
    explicit LayoutObject(IDRecord *record) : id(record) { id->AddRef(); }
    ~LayoutObject() { id->Release(); }
    LayoutObject(const LayoutObject &) = delete;
    LayoutObject &operator=(const LayoutObject &) = delete;

    [[nodiscard]] IDRecord *Id() const { return id; }
    /// Appends to the top level. Returns -1, and writes a line to the developer's log, if `component` is null.
    int AddComponent(Environment &env, std::unique_ptr<ComponentObject> component);

    std::vector<std::unique_ptr<ComponentObject>> components; ///< the top level

private:
    IDRecord *id;
};

/// The layouts of one resolution, which are in one XML file.
///
///     LayoutFileObject file(env, pool, resolution);
///     if (file.Load("res\\layout_demo_240x320.xml") == 0) ...
///     file.Save(file.path);
class LayoutFileObject
{
public:
    using Layouts = std::list<std::unique_ptr<LayoutObject>>;

    LayoutFileObject(Environment &environment, IDPool &idPool, qint16 resolutionIndex)
        : resolution(resolutionIndex), env(environment), pool(idPool)
    {
    }

    /// Reads a file. Returns 0 or a LayoutCode; the layouts before a faulty one are kept.
    [[nodiscard]] int Load(const NarrowText &file);
    /// Replaces a file, together with the other files of a running transaction. Returns 0, or a LayoutCode; the file is
    /// then unchanged.
    [[nodiscard]] int Save(const NarrowText &file);

    /// Returns -1 if there is a layout with that ID.
    int Add(std::unique_ptr<LayoutObject> layout);
    /// The layout with that ID, or null.
    [[nodiscard]] LayoutObject *Find(const IDRecord *id) const;
    /// Destroys the layout with that ID, if there is one.
    void Remove(const IDRecord *id);
    /// In the order of the file, followed by new ones.
    [[nodiscard]] const Layouts &All() const { return layouts; }

    NarrowText path;     ///< of the file that was read; empty for a new one
    qint16 resolution;   ///< index
    bool loaded = false; ///< a complete file was read

    /// A text that the code page can't express; a save replaces some of its characters.
    struct LostText
    {
        int row = 0; ///< of its element
        QString text;
    };
    std::vector<LostText> lost; ///< the first hundred in the file that was read
    int lostTexts = 0;          ///< the number of all such texts

private:
    [[nodiscard]] int Convert(TiXmlDocument &document);
    [[nodiscard]] int ConvertLayout(const TiXmlElement &element, class ComponentReader &components);

    Environment &env;
    IDPool &pool;
    Layouts layouts;
    std::unordered_map<const IDRecord *, Layouts::iterator> byId;
};

/// Each layout of a resolution shares ownership of its file; the last one destroys it.
using LayoutFileRef = std::shared_ptr<LayoutFileObject>;
