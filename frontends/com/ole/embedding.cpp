#include "ole/embedding.h"

#include "object/control.h"
#include "object/entry.h"
#include "server/guid.h"

#include <olectl.h>

namespace tablio::com {

namespace {

constexpr int himetricPerInch = 2540;
constexpr int twipsPerInch = 1440;
/// 320 by 240 pixels.
constexpr SIZEL usualExtent{8467, 6350};

Twips toTwips(LONG himetric) { return MulDiv(himetric, twipsPerInch, himetricPerInch); }

} // namespace

Embedding::Embedding(Control &control, Activation &activation)
    : PartOf(control), activation_(activation), extent_(usualExtent) {
    activation_.onPictureChanged = [this] {
        if (pictureSink_)
            ComPtr<IAdviseSink>(pictureSink_)->OnViewChange(DVASPECT_CONTENT, -1);
    };
}

Embedding::~Embedding() { activation_.onPictureChanged = nullptr; }

HRESULT Embedding::SetClientSite(IOleClientSite *site) {
    return entry(control(), [&] { activation_.setSite(site); });
}

HRESULT Embedding::GetClientSite(IOleClientSite **site) {
    if (site == nullptr)
        return E_POINTER;
    *site = ComPtr<IOleClientSite>(activation_.site().client()).release();
    return S_OK;
}

HRESULT Embedding::Close(DWORD saves) {
    return entry(control(), [&] {
        activation_.deactivate();
        if (saves != OLECLOSE_NOSAVE && control().isDirty() && activation_.site().client())
            ComPtr<IOleClientSite>(activation_.site().client())->SaveObject();
        if (sinks_)
            sinks_->SendOnClose();
    });
}

HRESULT Embedding::DoVerb(LONG verb, LPMSG /*message*/, IOleClientSite * /*site*/, LONG /*index*/,
                          HWND parent, LPCRECT /*position*/) {
    return entry(control(), [&]() -> HRESULT {
        switch (verb) {
        case OLEIVERB_SHOW:
        case OLEIVERB_INPLACEACTIVATE:
            return activation_.activate(false);
        case OLEIVERB_PRIMARY:
        case OLEIVERB_UIACTIVATE:
        case OLEIVERB_OPEN:
            return activation_.activate(true);
        case OLEIVERB_HIDE:
            activation_.deactivate();
            return S_OK;
        case OLEIVERB_PROPERTIES:
            return showProperties(parent);
        default:
            return verb > 0 ? OLEOBJ_S_INVALIDVERB : E_NOTIMPL;
        }
    });
}

/// The container may have a frame of its own for the pages.
HRESULT Embedding::showProperties(HWND parent) {
    if (const auto site = activation_.site().as<IOleControlSite>();
        site && site->ShowPropertyFrame() == S_OK)
        return S_OK;
    const auto pages = ComPtr<ISpecifyPropertyPages>::of(&control().outer());
    CAUUID ids{};
    if (!pages || FAILED(pages->GetPages(&ids)))
        return E_NOTIMPL;
    IUnknown *object = &control().outer();
    const HRESULT code =
        OleCreatePropertyFrame(parent, 0, 0, L"Tablio", 1, &object, ids.cElems, ids.pElems,
                               activation_.site().locale(), 0, nullptr);
    CoTaskMemFree(ids.pElems);
    return code;
}

HRESULT Embedding::EnumVerbs(IEnumOLEVERB **verbs) {
    return verbs == nullptr ? E_POINTER : OleRegEnumVerbs(tablioClassId, verbs);
}

HRESULT Embedding::GetUserClassID(CLSID *id) {
    if (id == nullptr)
        return E_POINTER;
    *id = tablioClassId;
    return S_OK;
}

HRESULT Embedding::GetUserType(DWORD form, LPOLESTR *name) {
    return name == nullptr ? E_POINTER : OleRegGetUserType(tablioClassId, form, name);
}

HRESULT Embedding::SetExtent(DWORD aspect, SIZEL *size) {
    if (size == nullptr)
        return E_POINTER;
    if (aspect != DVASPECT_CONTENT)
        return DV_E_DVASPECT;
    return entry(control(), [&] {
        extent_ = *size;
        // A window has its size from its container's window.
        if (!activation_.window().isOpen())
            control().table().input().resized(toTwips(extent_.cx), toTwips(extent_.cy));
    });
}

HRESULT Embedding::GetExtent(DWORD aspect, SIZEL *size) {
    if (size == nullptr)
        return E_POINTER;
    if (aspect != DVASPECT_CONTENT)
        return DV_E_DVASPECT;
    *size = extent_;
    return S_OK;
}

ComPtr<IOleAdviseHolder> Embedding::advised() {
    if (!sinks_)
        CreateOleAdviseHolder(sinks_.out());
    return sinks_;
}

HRESULT Embedding::Advise(IAdviseSink *sink, DWORD *number) {
    const auto sinks = advised();
    return sinks ? sinks->Advise(sink, number) : E_OUTOFMEMORY;
}

HRESULT Embedding::Unadvise(DWORD number) {
    return sinks_ ? sinks_->Unadvise(number) : OLE_E_NOCONNECTION;
}

HRESULT Embedding::EnumAdvise(IEnumSTATDATA **all) {
    const auto sinks = advised();
    return sinks ? sinks->EnumAdvise(all) : E_OUTOFMEMORY;
}

HRESULT Embedding::GetMiscStatus(DWORD /*aspect*/, DWORD *status) {
    if (status == nullptr)
        return E_POINTER;
    *status = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE | OLEMISC_INSIDEOUT |
              OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_SETCLIENTSITEFIRST;
    return S_OK;
}

HRESULT Embedding::GetControlInfo(CONTROLINFO *info) {
    if (info == nullptr)
        return E_POINTER;
    *info = {sizeof *info, nullptr, 0, CTRLINFO_EATS_RETURN};
    return S_OK;
}

HRESULT Embedding::OnAmbientPropertyChange(DISPID /*number*/) {
    return entry(control(), [this] { activation_.ambientsChanged(); });
}

HRESULT Embedding::FreezeEvents(BOOL freezes) {
    control().freezeEvents(freezes != FALSE);
    return S_OK;
}

HRESULT Embedding::Draw(DWORD aspect, LONG /*part*/, void * /*hints*/, DVTARGETDEVICE * /*target*/,
                        HDC /*targetDevice*/, HDC device, LPCRECTL area, LPCRECTL /*whole*/,
                        BOOL(CALLBACK * /*goesOn*/)(ULONG_PTR), ULONG_PTR /*cookie*/) {
    if (aspect != DVASPECT_CONTENT)
        return DV_E_DVASPECT;
    if (area == nullptr || device == nullptr)
        return E_POINTER;
    return entry(control(), [&] {
        RECT pixels{area->left, area->top, area->right, area->bottom};
        LPtoDP(device, reinterpret_cast<POINT *>(&pixels), 2);
        const int saved = SaveDC(device);
        SetMapMode(device, MM_TEXT);
        SetViewportOrgEx(device, 0, 0, nullptr);
        SetWindowOrgEx(device, 0, 0, nullptr);
        const Twips width = control().table().screen().widget(WidgetId::Grid).place.width;
        const double scale =
            width > 0 ? (pixels.right - pixels.left) * static_cast<double>(twipsPerPixel) / width
                      : 1;
        activation_.window().draw(device, pixels, scale);
        RestoreDC(device, saved);
    });
}

HRESULT Embedding::SetAdvise(DWORD aspect, DWORD flags, IAdviseSink *sink) {
    if (aspect != DVASPECT_CONTENT)
        return DV_E_DVASPECT;
    return entry(control(), [&] {
        pictureSink_ = ComPtr<IAdviseSink>(sink);
        pictureFlags_ = flags;
        if (sink != nullptr && (flags & ADVF_PRIMEFIRST) != 0)
            sink->OnViewChange(DVASPECT_CONTENT, -1);
    });
}

HRESULT Embedding::GetAdvise(DWORD *aspect, DWORD *flags, IAdviseSink **sink) {
    if (aspect != nullptr)
        *aspect = DVASPECT_CONTENT;
    if (flags != nullptr)
        *flags = pictureFlags_;
    if (sink != nullptr)
        *sink = ComPtr<IAdviseSink>(pictureSink_).release();
    return S_OK;
}

HRESULT Embedding::GetExtent(DWORD aspect, LONG /*part*/, DVTARGETDEVICE * /*target*/,
                             SIZEL *size) {
    return GetExtent(aspect, size);
}

} // namespace tablio::com
