/// @file
/// What the scripted user sees of the program's windows, and clicks in them.
#pragma once

#include "shell/MainFrm.h"
#include "tour/TourScript.h"
#include "tour/XHands.h"

#include <QApplication>

#include <cstdint>

class ListCombo;
class SensorPropertyFrm;

/// The modal dialogue on the screen if it is of this kind, nullptr otherwise.
template <typename Dialogue>
Dialogue *Modal()
{
    auto *dialogue = qobject_cast<Dialogue *>(QApplication::activeModalWidget());
    return dialogue && dialogue->isVisible() ? dialogue : nullptr;
}

bool NoDialogue();
bool MenuOpen();
/// A drop-down list is open.
bool ListOpen();

void ClickItem(const QMenu &menu, QAction *item);
void ClickMenuTitle(const QMenu &menu);
void ClickToolBar(const QString &key);
/// @param tab from 1
void ClickTabOf(int slot, int tab);

/// Opens a menu of the frame and clicks an item of it.
void AddMenuCommand(TourScript &script, QMenu *MainFrm::*menu, QAction *MainFrm::*item);

/// Chooses an entry of a drop-down list by clicking it open and stepping down.
void AddChoice(TourScript &script, const QString &name, ListCombo *SensorPropertyFrm::*list, int index);

/// Switches the language by the help menu.
void AddLanguage(TourScript &script, QAction *MainFrm::*item, std::int32_t language);
