pragma ComponentBehavior: Bound

import QtQuick
import Orvex
import Orvex.Color

/// The cards of one catalogue.
OrvexCardGrid {
    id: grid

    required property LUTPreviews previews
    required property string activePath
    required property string revealDescription

    signal apply(file: url, root: url)
    signal reveal(file: url)

    // A picture of 16 by 9 between the paddings, and what stands below it.
    cardHeight: Math.round((cardWidth - 20) * 9 / 16) + 100
    minimumWidth: 186

    delegate: LUTCard {
        id: card

        activePath: grid.activePath
        current: card.index === grid.currentIndex
        previews: grid.previews
        revealDescription: grid.revealDescription

        onApply: grid.apply(card.file, card.root)
        onReveal: grid.reveal(card.file)
        onTouched: grid.currentIndex = card.index
    }
}
