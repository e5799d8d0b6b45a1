import QtQml

/// A word about an item that holds or does not.
QtObject {
    required property string text
    required property bool holds
}
