import QtQuick
import Orvex

PanelCase {
    name: "Request"

    function write(title, detail) {
        named(page(), "title").text = title;
        named(page(), "detail").text = detail;
    }

    function written() {
        return [named(page(), "title").text, named(page(), "detail").text];
    }

    function sendButton() {
        return titled(page(), objects.state.requestSending ? "Gönderiliyor" : "Talebi gönder");
    }

    // Waits for the end of the sending and returns the toast.
    function outcome() {
        tryVerify(() => !objects.state.requestSending);
        return [objects.state.toast.kind, objects.state.toast.message];
    }

    function test_what_can_be_sent() {
        open(1040, 780, "request");
        for (const [title, detail, sendable] of [[" \n", "a", false], ["a", "\t ", false], ["a", "b", true]]) {
            write(title, detail);
            compare(sendButton().enabled, sendable);
            keySequence("Ctrl+Return");
            compare(objects.state.requestSending, sendable);
        }
        verify(!sendButton().enabled);
        // The fields are emptied when it has arrived: what was written meanwhile would go with it.
        verify(named(page(), "title").readOnly && named(page(), "detail").readOnly);
    }

    function test_sends_what_it_shows_and_starts_over() {
        objects.report({ connected: true, hostVersion: "11", sequenceAvailable: true, sequenceName: "Kurgu 1" });
        objects.answerRequests(201, '{"ok": true, "requestId": "R-7"}');
        open(360, 640, "request");
        named(page(), "title").forceActiveFocus(Qt.TabFocusReason);
        for (const key of [Qt.Key_A, Qt.Key_Tab, Qt.Key_B, Qt.Key_Return, Qt.Key_C, Qt.Key_Tab, Qt.Key_Down, Qt.Key_Down, Qt.Key_Tab])
            keyClick(key);
        verify(sendButton().activeFocus);
        keySequence("Ctrl+Return");
        compare(outcome(), [OrvexToast.Success, "Talep gönderildi • R-7"]);
        compare(written(), ["", ""]);
        compare(named(page(), "module").displayText, "Motion");
        const sent = JSON.parse(objects.lastRequest());
        compare([sent.title, sent.description, sent.module], ["a", "b\nc", "motion"]);
        const values = Object.values(sent.diagnostics);
        compare(values.length, 5);
        for (const value of values)
            verify(showing(page(), value) !== null, value);
    }

    function test_nothing_written_is_lost() {
        objects.answerRequests(500, "");
        open(1040, 780, "request");
        write(" Başlık", "Ayrıntı\n");
        mouseClick(sendButton());
        compare(outcome(), [OrvexToast.Error, "İstek Merkezi • Talep gönderilemedi."]);
        compare(written(), [" Başlık", "Ayrıntı\n"]);
        const sent = JSON.parse(objects.lastRequest());
        compare([sent.title, sent.description], ["Başlık", "Ayrıntı"]);

        // Neither an empty page that is left takes the place of the draft nor what is written next.
        for (const title of [" Başlık", "", "Son"]) {
            if (title !== " Başlık")
                write(title, "");
            for (const id of ["timeline", "request"])
                objects.state.activePage = OrvexPages.byId(id);
        }
        for (const [title, detail] of [["Son", ""], [" Başlık", "Ayrıntı\n"]]) {
            write("", "");
            waitForRendering(panel);
            mouseClick(titled(page(), "Taslağı geri getir"));
            compare(written(), [title, detail]);
        }
        verify(!objects.state.request.hasDraft);

        // Left while it is being sent: it arrives all the same.
        objects.answerRequests(200, '{"ok": true}');
        mouseClick(sendButton());
        objects.state.activePage = OrvexPages.byId("timeline");
        compare(outcome(), [OrvexToast.Success, "Talep gönderildi • Vantrelo Request"]);
        verify(!objects.state.request.hasDraft);
    }
}
