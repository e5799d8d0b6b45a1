import Orvex
import Orvex.Pages

OrvexAudioView {
    id: page

    required property OrvexPageSwitch view

    registry: page.view.audio
    onCopied: page.view.state.showToast("Audio Unit bilgileri kopyalandı.", OrvexToast.Success, 3.2)
}
