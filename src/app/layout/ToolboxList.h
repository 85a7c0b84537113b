// SPDX-License-Identifier: MIT
#pragma once

#include <QListWidget>

#include <functional>
#include <memory>

class CResModel;
class ClassCatalogue;
struct ClassDescriptor;

/// The list of classes of which the user can add components to a layout.
class ToolboxList : public QListWidget
{
public:
    explicit ToolboxList(QWidget *parent);

    /// Lists the classes that a project's catalogue offers; none if the project has no catalogue.
    void Fill(const CResModel &project);
    /// Called when the user chooses a class by a double click or by Enter, to add a component of it.
    std::function<void(const ClassDescriptor &type)> chosen;

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void Choose(const QListWidgetItem *row);

    std::shared_ptr<const ClassCatalogue> catalogue; // of the listed classes, which it keeps alive
};
