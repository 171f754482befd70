// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Plasma's wallpaper while something plays: the frames, and before them and after them the picture.

import QtQuick
import QtQuick.Window
import org.kde.plasma.plasmoid
import org.kde.taskmanager as TaskManager
import org.tesselbroth.wallpaper

WallpaperItem {
    id: root

    Rectangle {
        anchors.fill: parent
        color: "#1B1216"
    }

    Image {
        anchors.fill: parent
        cache: false
        fillMode: Image.PreserveAspectCrop
        source: frames.playing ? "" : root.configuration.Image
    }

    WallpaperFrames {
        id: frames

        anchors.fill: parent
        screen: Screen.name
        windows: tasks
    }

    TaskManager.ActivityInfo {
        id: activities
    }

    TaskManager.VirtualDesktopInfo {
        id: workspaces
    }

    TaskManager.TasksModel {
        id: tasks

        activity: activities.currentActivity
        filterByActivity: true
        filterByScreen: true
        filterByVirtualDesktop: true
        filterMinimized: true
        groupMode: TaskManager.TasksModel.GroupDisabled
        screenGeometry: Qt.rect(Screen.virtualX, Screen.virtualY, Screen.width, Screen.height)
        virtualDesktop: workspaces.currentDesktop
    }
}
