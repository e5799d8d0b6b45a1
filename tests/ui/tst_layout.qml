import QtQuick
import Orvex

KitCase {
    id: testCase

    name: "Layout"

    Component {
        id: grid

        OrvexAdaptiveGrid {
            minimumWidth: 145
            spacing: 10

            Repeater {
                model: 5

                Item { required property int index; implicitHeight: index === 1 ? 60 : 30; implicitWidth: 20 }
            }
        }
    }

    Component {
        id: scrollPage

        OrvexScrollPage {
            property alias first: first

            height: 200
            width: 300

            OrvexPrimaryButton { id: first; icon: "bolt.fill"; title: "İlk" }

            Repeater {
                model: 12

                OrvexToolCard { icon: "bolt.fill"; subtitle: "Alt başlık"; title: "Kart" }
            }
        }
    }

    function test_columns() {
        for (const [width, columns] of [[100, 1], [299, 1], [300, 2], [620, 4]]) {
            const item = make(grid, { width: width });
            compare(item.columns, columns);
            const all = Array.from(item.children).filter(child => child.implicitHeight > 0);
            for (let i = 0; i < 5; ++i) {
                const column = i % columns;
                const row = all.slice(i - column, i - column + columns);
                compare(all[i].height, Math.max(...row.map(cell => cell.implicitHeight)));
                compare(all[i].x, Math.round(all[i].x));
                if (column > 0)
                    compare(all[i].x, all[i - 1].x + all[i - 1].width + 10);
                if (column === columns - 1)
                    compare(all[i].x + all[i].width, width);
            }
            compare(item.implicitHeight, all[4].y + all[4].height);
        }
    }

    function test_scrollPageByKeyboard() {
        const page = make(scrollPage);
        page.forceActiveFocus();
        const end = Math.round(page.contentHeight - page.height);
        for (const [key, y] of [[Qt.Key_End, end], [Qt.Key_Home, 0], [Qt.Key_PageDown, 180], [Qt.Key_PageUp, 0], [Qt.Key_Down, 48], [Qt.Key_Up, 0]]) {
            keyClick(key);
            compare(page.contentY, y);
        }
    }

    function test_focusIsBroughtIntoView() {
        const page = make(scrollPage);
        page.first.forceActiveFocus(Qt.TabFocusReason);
        for (const key of Array(12).fill(Qt.Key_Tab).concat(Array(12).fill(Qt.Key_Backtab))) {
            keyClick(key);
            const item = page.Window.activeFocusItem;
            const top = item.mapToItem(page, 0, 0).y;
            verify(top >= 0 && top + item.height <= page.height);
        }
        compare(page.Window.activeFocusItem, page.first);
    }
}
