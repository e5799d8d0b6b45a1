import QtQuick
import QtTest
import Orvex

KitCase {
    id: testCase

    name: "Layout"

    Component {
        id: grid

        OrvexAdaptiveGrid {
            property alias count: repeater.model

            minimumWidth: 145
            spacing: 10

            Repeater {
                id: repeater

                Item {
                    required property int index

                    implicitHeight: index === 1 ? 60 : 30
                    implicitWidth: 20
                }
            }
        }
    }

    Component {
        id: scrollPage

        OrvexScrollPage {
            property alias count: repeater.model
            property alias first: first

            height: 200
            width: 300

            OrvexPrimaryButton {
                id: first

                icon: "bolt.fill"
                title: "İlk"
            }

            Repeater {
                id: repeater

                OrvexToolCard {
                    required property int index

                    icon: "bolt.fill"
                    objectName: "card" + index
                    subtitle: "Alt başlık"
                    title: "Kart " + index
                }
            }
        }
    }

    function cells(item) {
        return Array.from(item.children).filter(child => child.implicitHeight > 0);
    }

    function test_columns_data() {
        return [
            { tag: "no room", width: 100, columns: 1 },
            { tag: "one short of two", width: 299, columns: 1 },
            { tag: "exactly two", width: 300, columns: 2 },
            { tag: "wide", width: 620, columns: 4 }
        ];
    }

    function test_columns(data) {
        const item = make(grid, { count: 5, width: data.width });
        compare(item.columns, data.columns);
        const all = cells(item);
        compare(all.length, 5);
        for (let i = 0; i < 5; ++i) {
            const column = i % data.columns;
            const row = all.slice(i - column, i - column + data.columns);
            compare(all[i].height, Math.max(...row.map(cell => cell.implicitHeight)));
            compare(all[i].x, Math.round(all[i].x));
            fuzzyCompare(all[i].width, (data.width + 10) / data.columns - 10, 1);
            if (column > 0)
                compare(all[i].x, all[i - 1].x + all[i - 1].width + 10);
            if (column === data.columns - 1)
                compare(all[i].x + all[i].width, data.width);
        }
        compare(item.implicitHeight, all[4].y + all[4].height);
    }

    function test_scrollPageByKeyboard() {
        const page = make(scrollPage, { count: 12 });
        page.forceActiveFocus();
        const end = page.contentHeight - page.height;
        verify(end > 300);
        const steps = [
            [Qt.Key_End, Math.round(end)],
            [Qt.Key_Home, 0],
            [Qt.Key_PageDown, 180],
            [Qt.Key_PageUp, 0],
            [Qt.Key_Down, 48],
            [Qt.Key_Up, 0],
            [Qt.Key_Up, 0]
        ];
        for (const [key, y] of steps) {
            keyClick(key);
            compare(page.contentY, y);
        }
    }

    function test_focusIsBroughtIntoView() {
        const page = make(scrollPage, { count: 12 });
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
