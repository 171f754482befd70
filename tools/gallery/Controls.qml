// SPDX-FileCopyrightText: 2026 The Tessel Broth developers
// SPDX-License-Identifier: GPL-3.0-or-later
import QtQuick
import TesselBroth.Controls

/** Every control in every state, to be looked at. */
Rectangle {
    id: page

    readonly property string clay: "image://shapes/vignette/EADFD2-9C8B7B-4C4036-15110E/33x22/2"
    readonly property string lively: "image://shapes/vignette/FFE0A0-F08A4B-7A2A6B-150A2E/33x22/2"

    color: Theme.soot
    height: 1100
    width: 1180

    component Heading: Label {
        color: Theme.amber
        font.pixelSize: 12
        font.weight: Font.DemiBold
        height: 18
    }
    component Note: Label {
        color: "#93867A"
        font.weight: Font.Normal
        height: 14
    }
    Heading { x: 32; y: 28; text: "Knob" }
    Knob { x: 32; y: 62; label: "Warp"; position: 1 / 3; valueText: "1.00" }
    Note { x: 32; y: 104; text: "rest" }
    Knob { x: 204; y: 62; label: "Warp"; position: 1 / 3; valueText: "1.00"; hovered: true }
    Note { x: 204; y: 104; text: "hover" }
    Knob { x: 376; y: 62; label: "Warp"; position: 0.54; valueText: "1.62"; hovered: true; dragged: true }
    Note { x: 376; y: 104; text: "drag" }
    Knob { x: 548; y: 62; label: "Warp"; position: 1 / 3; valueText: "1.00"; focused: true }
    Note { x: 548; y: 104; text: "keyboard focus" }
    Knob { x: 720; y: 62; label: "Warp"; position: 1 / 3; valueText: "1.00"; enabled: false }
    Note { x: 720; y: 104; text: "disabled" }
    Knob { x: 884; y: 62; label: "Vignette"; position: 1; valueText: "1.00" }
    Note { x: 892; y: 104; text: "at its upper end" }
    Knob { x: 1040; y: 62; width: 120; label: "Seed"; position: 0.4; valueText: "40"; typed: "4" }
    Note { x: 1040; y: 104; text: "typing" }

    Heading { x: 32; y: 140; text: "Tile" }
    Tile { x: 32; y: 172; title: "Cells"; picture: page.clay; livePicture: page.lively }
    Note { x: 32; y: 240; text: "rest" }
    Tile { x: 132; y: 172; title: "Cells"; picture: page.clay; livePicture: page.lively; hovered: true }
    Note { x: 132; y: 240; text: "hover" }
    Tile { x: 232; y: 172; title: "Cells"; picture: page.clay; livePicture: page.lively; hovered: true; pressed: true }
    Note { x: 232; y: 240; text: "pressed" }
    Tile { x: 332; y: 172; title: "Cells"; picture: page.clay; livePicture: page.lively; selected: true }
    Note { x: 332; y: 240; text: "selected" }
    Tile { x: 432; y: 172; title: "Cells"; picture: page.clay; livePicture: page.lively; focused: true }
    Note { x: 432; y: 240; text: "focus" }
    Tile { x: 532; y: 172; title: "Cells"; picture: page.clay; livePicture: page.lively; focused: true; selected: true }
    Note { x: 532; y: 240; text: "selected + focus" }
    PresetTile { x: 672; y: 170; title: "Swell Hearth"; animated: true; picture: page.lively }
    PresetTile { x: 845; y: 170; title: "A rather long name of mine"; selected: true; picture: page.lively }
    PresetTile { x: 1018; y: 170; title: "Hovered"; hovered: true; animated: true; picture: page.lively }

    Heading { x: 32; y: 308; text: "PaletteSwatch" }
    PaletteSwatch { x: 32; y: 340; title: "Ember"; stops: ["#0B0503", "#5A0E02", "#E0440E", "#FFB347", "#FFF1C9"] }
    Note { x: 32; y: 390; text: "builtin" }
    PaletteSwatch { x: 144; y: 340; title: "Glasswork"; stops: ["#F0F0F5", "#A0A8FF", "#B090FF", "#3040F0", "#101C90"]; hovered: true }
    Note { x: 144; y: 390; text: "hover" }
    PaletteSwatch { x: 256; y: 340; title: "Dusk"; stops: ["#0B0A1E", "#3A1D6E", "#C23B7A", "#FF9A5A", "#FFE29A"]; selected: true }
    Note { x: 256; y: 390; text: "selected" }
    PaletteSwatch { x: 368; y: 340; title: "Tide"; stops: ["#02040F", "#0A2A5A", "#1E78E0", "#7ACBFF", "#F0FFFF"]; focused: true }
    Note { x: 368; y: 390; text: "focus" }
    PaletteSwatch { x: 480; y: 340; title: "Mine 1"; kind: PaletteSwatch.Mine; stops: ["#10131F", "#274B5E", "#D9583B", "#F7B05B", "#FFF0D0"] }
    Note { x: 480; y: 390; text: "mine" }
    PaletteSwatch { x: 592; y: 340; title: "Mine 2"; kind: PaletteSwatch.Mine; stops: ["#1E0214", "#67083A", "#B80F55", "#F0668F", "#FFF1E8"]; hovered: true }
    Note { x: 592; y: 390; text: "hover: Edit, Delete" }
    PaletteSwatch { x: 720; y: 340; title: "New palette"; kind: PaletteSwatch.Add }
    Note { x: 720; y: 390; text: "add" }
    PaletteSwatch { x: 832; y: 340; title: "New palette"; kind: PaletteSwatch.Add; hovered: true }
    Note { x: 832; y: 390; text: "add, hover" }
    PaletteSwatch { x: 944; y: 340; title: "Black"; stops: ["#000000", "#1A1A1A"] }
    Note { x: 944; y: 390; text: "as dark as the panel" }

    Heading { x: 32; y: 424; text: "ColorField" }
    ColorChip { x: 32; y: 456; color: "#274B5E"; hex: "274B5E" }
    Note { x: 40; y: 522; text: "rest" }
    ColorChip { x: 108; y: 456; color: "#274B5E"; hex: "274B5E"; hovered: true }
    Note { x: 116; y: 522; text: "hover" }
    ColorChip { x: 184; y: 456; color: "#D9583B"; hex: "D9583B"; open: true }
    Note { x: 192; y: 522; text: "open" }
    ColorChip { x: 260; y: 456; color: "#F7B05B"; hex: "F7B05B"; focused: true }
    Note { x: 268; y: 522; text: "focus" }
    ColorTrack { x: 372; y: 454; width: 230; letter: "H"; valueText: "11°"; position: 11 / 360; colors: ["#D93838", "#D98938", "#D9D938", "#89D938", "#38D938", "#38D989", "#38D9D9", "#3889D9", "#3838D9", "#8938D9", "#D938D9", "#D93889", "#D93838"] }
    ColorTrack { x: 372; y: 479; width: 230; letter: "S"; valueText: "73"; position: 0.73; colors: ["#D9D9D9", "#D93300"] }
    ColorTrack { x: 372; y: 504; width: 230; letter: "B"; valueText: "85"; position: 0.85; dragged: true; colors: ["#000000", "#FF6845"] }
    HexField { x: 644; y: 460; width: 76; hex: "274B5E" }
    Note { x: 644; y: 490; text: "hex, rest" }
    HexField { x: 736; y: 460; width: 76; hex: "D9583B"; focused: true }
    Note { x: 736; y: 490; text: "editing" }
    HexField { x: 828; y: 460; width: 76; hex: "D958"; wrong: true }
    Note { x: 828; y: 490; text: "not six digits" }
    IconButton { x: 644; y: 508; symbol: "minus"; tip: "Remove"; box: 15; stroke: 2 }
    IconButton { x: 674; y: 508; symbol: "plus"; tip: "Add"; box: 15; stroke: 2 }

    Heading { x: 32; y: 568; text: "IconButton" }
    IconButton { x: 32; y: 598; symbol: "download"; tip: "Export PNG" }
    Note { x: 30; y: 632; text: "rest" }
    IconButton { x: 90; y: 598; symbol: "download"; tip: "Export PNG"; hovered: true }
    Note { x: 88; y: 632; text: "hover" }
    IconButton { x: 148; y: 598; symbol: "download"; tip: "Export PNG"; hovered: true; pressed: true }
    Note { x: 146; y: 632; text: "press" }
    IconButton { x: 206; y: 598; symbol: "download"; tip: "Export PNG"; focused: true }
    Note { x: 204; y: 632; text: "focus" }
    IconButton { x: 264; y: 598; symbol: "download"; tip: "Export PNG"; open: true }
    Note { x: 262; y: 632; text: "menu" }
    IconButton { x: 322; y: 598; symbol: "download"; tip: "Export PNG"; enabled: false }
    Note { x: 320; y: 632; text: "disabled" }

    Heading { x: 432; y: 568; text: "SmallButton" }
    SmallButton { x: 432; y: 598; width: 100; text: "From photo" }
    SmallButton { x: 550; y: 598; width: 100; text: "From photo"; hovered: true }
    SmallButton { x: 668; y: 598; width: 100; text: "From photo"; pressed: true }
    SmallButton { x: 786; y: 598; width: 100; text: "From photo"; focused: true }
    SmallButton { x: 904; y: 598; width: 100; text: "From photo"; enabled: false }
    SmallButton { x: 432; y: 636; width: 100; kind: SmallButton.Filled; text: "Apply again" }
    SmallButton { x: 550; y: 636; width: 100; kind: SmallButton.Filled; text: "Apply again"; hovered: true }
    SmallButton { x: 668; y: 636; width: 100; kind: SmallButton.Filled; text: "Apply again"; pressed: true }
    SmallButton { x: 786; y: 636; width: 100; kind: SmallButton.Filled; text: "Apply again"; focused: true }
    SmallButton { x: 904; y: 636; width: 100; kind: SmallButton.Filled; text: "Apply again"; enabled: false }
    SmallButton { x: 1022; y: 598; kind: SmallButton.Alarm; text: "Delete" }
    Note { x: 432; y: 670; text: "rest" }
    Note { x: 550; y: 670; text: "hover" }
    Note { x: 668; y: 670; text: "press" }
    Note { x: 786; y: 670; text: "focus" }
    Note { x: 904; y: 670; text: "disabled" }

    Heading { x: 32; y: 700; text: "Segmented" }
    Segmented { x: 32; y: 730; width: 240; titles: ["Still", "Animated"]; symbols: ["live-photo-off", "live-photo"] }
    Note { x: 32; y: 764; text: "rest" }
    Segmented { x: 32; y: 790; width: 240; titles: ["Hourly", "Daily", "Never"]; current: 1; focused: true }
    Note { x: 32; y: 824; text: "focus on the group" }
    TabBar { x: 32; y: 842; width: 288; titles: ["Shape", "Color", "Dither", "Presets"] }

    Heading { x: 324; y: 700; text: "ToggleRow, Switch" }
    ToggleRow { x: 324; y: 727; width: 132; label: "Invert" }
    ToggleRow { x: 324; y: 751; width: 132; label: "Invert"; hovered: true }
    ToggleRow { x: 324; y: 775; width: 132; label: "Invert"; on: true }
    ToggleRow { x: 324; y: 799; width: 132; label: "Invert"; on: true; focused: true }
    ToggleRow { x: 324; y: 823; width: 132; label: "Invert"; enabled: false }
    Note { x: 472; y: 734; text: "off" }
    Note { x: 472; y: 758; text: "off, hover" }
    Note { x: 472; y: 782; text: "on" }
    Note { x: 472; y: 806; text: "focus" }
    Note { x: 472; y: 830; text: "disabled" }

    Heading { x: 580; y: 700; text: "HoverLabel" }
    IconButton { id: undo; x: 580; y: 730; symbol: "arrow-back-up"; tip: "Undo"; hovered: true }
    Item { x: 570; y: 720; width: 120; height: 80; HoverLabel { anchors.fill: parent } }
    Capsule { x: 580; y: 826; text: "Open editor" }
    Component.onCompleted: Tips.enter(undo, "Undo")

    Heading { x: 820; y: 700; text: "Scroll bar and fade" }
    Rectangle {
        clip: true
        color: Theme.shell
        height: 96
        width: 152
        x: 820
        y: 728

        ScrollArea {
            anchors.fill: parent
            view: flick

            Flickable {
                id: flick

                anchors.fill: parent
                contentHeight: 300
                contentY: 22
                interactive: false

                Tile { x: 4; y: 2; title: "Fold"; picture: page.clay }
                Tile { x: 74; y: 2; title: "Swell"; picture: page.clay }
                Tile { x: 4; y: 74; title: "Gem"; picture: page.clay }
                Tile { x: 74; y: 74; title: "Fluted"; picture: page.clay }
            }
        }
    }

    Heading { x: 32; y: 880; text: "Prompt and alert" }
    Item {
        height: 200; width: 280; x: 24; y: 902
        Sheet {
            anchors.fill: parent
            asksText: true
            firstTitle: "Save"
            otherTitle: "Cancel"
            text: "A name for this shape, colours, dither and sliders. It stays in Presets, one click from the menu bar."
            title: "Save as preset"
            Component.onCompleted: { answer = "Flow Dusk"; open() }
        }
    }
    Item {
        height: 160; width: 280; x: 312; y: 902
        Sheet {
            anchors.fill: parent
            firstKind: SmallButton.Alarm
            firstTitle: "Delete"
            otherTitle: "Cancel"
            text: "Wallpapers already using these colours keep them."
            title: "Delete \"Mine 2\"?"
            Component.onCompleted: open()
        }
    }
    Heading { x: 624; y: 880; text: "Menu" }
    Item {
        height: 150; width: 200; x: 612; y: 898
        PopupMenu {
            id: menu
            anchors.fill: parent
            Component.onCompleted: { isOpen = true; current = 0 }
            rows: [{text: "Swell Hearth"}, {text: "6K", detail: "6016 × 3384"}, {text: "Save as Preset...", separated: true}]
        }
    }
    Heading { x: 832; y: 880; text: "Empty" }
    SmallButton { x: 832; y: 910; width: 288; text: "Save as preset"; symbol: "plus" }
}
