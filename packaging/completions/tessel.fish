# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later

set -l commands render shuffle sheet list inspect read do set get check
set -l first "not __fish_seen_subcommand_from $commands"

complete -c tessel -n "$first" -f -l version -d 'Print the version'
complete -c tessel -f -s h -l help -d 'Print the help'
complete -c tessel -n "$first" -f -a render -d 'Draw a look into a PNG file'
complete -c tessel -n "$first" -f -a shuffle -d 'Print random looks, one a line'
complete -c tessel -n "$first" -f -a sheet -d 'Draw a labelled contact sheet'
complete -c tessel -n "$first" -f -a list -d 'Print the patterns, dithers or palettes'
complete -c tessel -n "$first" -f -a inspect -d 'Tell how a look is understood'
complete -c tessel -n "$first" -f -a read -d 'Print the look that a PNG holds'
complete -c tessel -n "$first" -f -a do -d 'Have the running Tessel Broth do something'
complete -c tessel -n "$first" -f -a set -d 'Put a look on the desktop'
complete -c tessel -n "$first" -f -a get -d 'Print the look on the desktop'
complete -c tessel -n "$first" -f -a check -d 'Hold patterns or palettes to their limits'

set -l frame "__fish_seen_subcommand_from render inspect"
complete -c tessel -n "$frame" -x -l size -a '1920x1080 2560x1440 3840x2160' -d 'Size in pixels'
complete -c tessel -n "$frame" -r -l previous -d 'The look to fade from'
complete -c tessel -n "$frame" -x -l mix -d 'How far the fade has come, 0 to 1'
complete -c tessel -n "$frame" -x -l edge -a 'left right' -d 'The side the handle is on'
complete -c tessel -n "__fish_seen_subcommand_from render inspect sheet" -x -l time -d 'Animation phase'
complete -c tessel -n "__fish_seen_subcommand_from render inspect sheet" -x -l reference -d 'Points of the long side'
complete -c tessel -n "__fish_seen_subcommand_from render sheet" -r -l out -d 'Where to write'
complete -c tessel -n "__fish_seen_subcommand_from render" -f -l timing -d 'Print how long each step took'
complete -c tessel -n "__fish_seen_subcommand_from render" -x -l animate -d 'Draw that many seconds as PNG files'
complete -c tessel -n "__fish_seen_subcommand_from render" -x -l fps -d 'Frames a second'
complete -c tessel -n "__fish_seen_subcommand_from render" -x -l loop-fade -d 'Fade the end into the beginning'
complete -c tessel -n "__fish_seen_subcommand_from shuffle sheet" -x -l count -d 'How many'
complete -c tessel -n "__fish_seen_subcommand_from shuffle sheet" -x -l random-seed -d 'The same looks for the same number'
complete -c tessel -n "__fish_seen_subcommand_from shuffle" -r -l keep-image -d 'A photo to put into every look'
complete -c tessel -n "__fish_seen_subcommand_from sheet" -a 'patterns dithers palettes motion shuffles best'
complete -c tessel -n "__fish_seen_subcommand_from sheet" -x -l tile -d 'Size of a tile in pixels'
complete -c tessel -n "__fish_seen_subcommand_from list" -f -a 'patterns dithers palettes'
complete -c tessel -n "__fish_seen_subcommand_from list inspect get check" -f -l json -d 'As JSON'
complete -c tessel -n "__fish_seen_subcommand_from do" -f \
    -a 'new-wallpaper previous-wallpaper toggle-motion open-editor quit'
complete -c tessel -n "__fish_seen_subcommand_from set" -f -l still -d "As the desktop's own picture"
complete -c tessel -n "__fish_seen_subcommand_from set" -f -l animated -d 'Played live'
complete -c tessel -n "__fish_seen_subcommand_from check" -x -l pattern -d 'Only this one'
complete -c tessel -n "__fish_seen_subcommand_from check" -x -l seeds -d 'How many seeds'
complete -c tessel -n "__fish_seen_subcommand_from check" -f -l palettes -d 'The palettes instead'

complete -c tessel-broth -f -s h -l help -d 'Print the help'
complete -c tessel-broth -f -s v -l version -d 'Print the version'
