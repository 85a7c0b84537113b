// SPDX-License-Identifier: MIT
#pragma once

#include <QListWidget>

#include <functional>
#include <memory>

class CResModel;
class ClassCatalogue;
struct ClassDescriptor;

/// The classes that a layout can have components of.
class ToolboxList : public QListWidget
{
public:
    explicit ToolboxList(QWidget *parent);

    /// Lists the classes that a project's catalogue offers; none where it has no catalogue.
    void Fill(const CResModel &project);
    /// Told of a class that the user wants a component of: by a double click, or by Enter.
    std::function<void(const ClassDescriptor &type)> chosen;

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void Choose(const QListWidgetItem *row);

    std::shared_ptr<const ClassCatalogue> catalogue; // of what is listed, which it keeps alive
};
