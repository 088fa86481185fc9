Attribute VB_Name = "KRT"
' KRT barcode functions for Excel (64-bit Office, VBA 7) over krt.dll.
'
' Import this module (Developer > Visual Basic > File > Import File), put krt.dll where
' Windows finds it (beside the workbook's program, a folder on PATH, or write its full path
' in the Lib clauses below), and use in cells:
'   =KRTENCODE("EAN13"; A2; TRUE)         glyph string for the barcode font
'   =KRTENTRY("EAN 13 Add-on 5"; A2; TRUE) what KRT's window draws for an entry
'   =KRTHRC("Code 39"; A2; TRUE)          human readable text
'   =KRTGS1("(01)09501101530003(10)ABC")  GS1-128
'   =KRTISBN("88-452-9261-4")             hyphenated ISBN-13
'   =KRTWHY("EAN13"; A2)                  why the content is refused ("" when it is not)
' A refused content gives #VALUE!. The optional last argument symbol (TRUE) gives the
' characters of a font with a symbol character map (U+F000 + glyph byte); left out, the
' Windows-1252 reading that a Unicode-map font draws.
'
' Text goes to and from krt.dll as Windows-1252 bytes, converted here whatever the system's
' code page; a character Windows-1252 lacks is refused.
Option Explicit

Private Const KRT_OK As Long = 0
Private Const KRT_BUFFER_TOO_SMALL As Long = 3
Private Const KRT_CHECK As Long = 1
Private Const KRT_HRC As Long = 4
Private Const KRT_CHECK_IN_HRC As Long = 8
Private Const KRT_ITALIAN As Long = 16
Private Const KRT_ISBN13 As Long = 32
Private Const KRT_FIELD_GLYPHS As Long = 0
Private Const KRT_FIELD_HRC As Long = 5
' krt_reason on 64-bit Windows: int kind, size_t position, unsigned char character,
' size_t minimum, maximum, char text[256] at offset 40; 296 bytes in all.
Private Const REASON_SIZE As Long = 296
Private Const REASON_TEXT As Long = 40

Private Declare PtrSafe Function krt_encode Lib "krt.dll" (ByRef symbology As Byte, ByRef content As Byte, _
    ByVal length As LongPtr, ByVal flags As Long, ByRef glyphs As Byte, ByVal size As LongPtr, _
    ByRef written As LongPtr) As Long
Private Declare PtrSafe Function krt_explain Lib "krt.dll" (ByRef symbology As Byte, ByRef content As Byte, _
    ByVal length As LongPtr, ByVal flags As Long, ByRef reason As Byte) As Long
Private Declare PtrSafe Function krt_entry_encode Lib "krt.dll" (ByRef name As Byte, ByRef content As Byte, _
    ByVal length As LongPtr, ByVal flags As Long, ByVal style As LongPtr, ByRef result As LongPtr) As Long
Private Declare PtrSafe Function krt_gs1_encode_text Lib "krt.dll" (ByRef text As Byte, ByVal length As LongPtr, _
    ByVal flags As Long, ByVal style As LongPtr, ByRef result As LongPtr) As Long
Private Declare PtrSafe Function krt_result_copy Lib "krt.dll" (ByVal result As LongPtr, ByVal field As Long, _
    ByRef buffer As Byte, ByVal size As LongPtr, ByRef written As LongPtr) As Long
Private Declare PtrSafe Sub krt_result_free Lib "krt.dll" (ByVal result As LongPtr)
Private Declare PtrSafe Function krt_isbn_convert Lib "krt.dll" (ByRef isbn As Byte, ByVal length As LongPtr, _
    ByVal flags As Long, ByRef out As Byte, ByVal size As LongPtr, ByRef written As LongPtr, _
    ByVal reason As LongPtr) As Long

' Windows-1252 characters of bytes &H80 to &H9F (the five undefined ones read as themselves).
Private Function Cp1252Alto() As Variant
    Cp1252Alto = Array(&H20AC, &H81, &H201A, &H192, &H201E, &H2026, &H2020, &H2021, &H2C6, &H2030, &H160, _
                       &H2039, &H152, &H8D, &H17D, &H8F, &H90, &H2018, &H2019, &H201C, &H201D, &H2022, _
                       &H2013, &H2014, &H2DC, &H2122, &H161, &H203A, &H153, &H9D, &H17E, &H178)
End Function

' A cell value as text: whole numbers without decimals (a code in a number cell).
Private Function Testo(ByVal v As Variant) As String
    If IsEmpty(v) Or IsMissing(v) Then
        Testo = ""
    ElseIf VarType(v) = vbDouble Or VarType(v) = vbCurrency Or VarType(v) = vbLong Or VarType(v) = vbInteger Then
        If v = Fix(v) And Abs(v) < 1E+15 Then Testo = Format$(v, "0") Else Testo = CStr(v)
    Else
        Testo = CStr(v)
    End If
End Function

Private Function Vero(ByVal v As Variant) As Boolean
    If IsMissing(v) Or IsEmpty(v) Then
        Vero = False
    Else
        Vero = CBool(v)
    End If
End Function

' Windows-1252 bytes of s, NUL-terminated; False when a character has none.
Private Function InCp1252(ByVal s As String, ByRef b() As Byte) As Boolean
    Dim alto As Variant, i As Long, j As Long, c As Long
    alto = Cp1252Alto()
    ReDim b(0 To Len(s))
    For i = 1 To Len(s)
        c = AscW(Mid$(s, i, 1)) And &HFFFF&
        If c < &H80 Or (c >= &HA0 And c <= &HFF) Then
            b(i - 1) = c
        Else
            For j = 0 To 31
                If alto(j) = c Then Exit For
            Next j
            If j > 31 Then Exit Function
            b(i - 1) = &H80 + j
        End If
    Next i
    b(Len(s)) = 0
    InCp1252 = True
End Function

' The cell's characters for n glyph bytes: Windows-1252 reading, or U+F000 + byte for a
' symbol-map font (line breaks kept).
Private Function DaByte(ByRef b() As Byte, ByVal n As Long, ByVal simbolo As Boolean) As String
    Dim alto As Variant, i As Long, s As String
    alto = Cp1252Alto()
    For i = 0 To n - 1
        If b(i) < &H20 Then
            s = s & Chr$(b(i))
        ElseIf simbolo Then
            s = s & ChrW(&HF000 + b(i))
        ElseIf b(i) >= &H80 And b(i) <= &H9F Then
            s = s & ChrW(alto(b(i) - &H80))
        Else
            s = s & ChrW(b(i))
        End If
    Next i
    DaByte = s
End Function

Private Function Codifica(ByVal simbologia As String, ByVal contenuto As String, ByVal flags As Long, _
                          ByVal simbolo As Boolean, ByRef uscita As String) As Boolean
    Dim s() As Byte, c() As Byte, g() As Byte, n As LongPtr, stato As Long
    If Not InCp1252(simbologia, s) Or Not InCp1252(contenuto, c) Then Exit Function
    ReDim g(0 To 255)
    stato = krt_encode(s(0), c(0), Len(contenuto), flags, g(0), 256, n)
    If stato = KRT_BUFFER_TOO_SMALL Then
        ReDim g(0 To CLng(n))
        stato = krt_encode(s(0), c(0), Len(contenuto), flags, g(0), n + 1, n)
    End If
    If stato <> KRT_OK Then Exit Function
    uscita = DaByte(g, CLng(n), simbolo)
    Codifica = True
End Function

' A field of a krt_result (then freed); False when the call refused.
Private Function Campo(ByVal stato As Long, ByVal risultato As LongPtr, ByVal campo_ As Long, _
                       ByVal simbolo As Boolean, ByRef uscita As String) As Boolean
    Dim g() As Byte, n As LongPtr
    If stato = KRT_OK Then
        ReDim g(0 To 0)
        krt_result_copy risultato, campo_, g(0), 0, n
        ReDim g(0 To CLng(n))
        If krt_result_copy(risultato, campo_, g(0), n + 1, n) = KRT_OK Then
            uscita = DaByte(g, CLng(n), simbolo)
            Campo = True
        End If
    End If
    If risultato <> 0 Then krt_result_free risultato
End Function

Private Function Italiano() As Long
    On Error Resume Next
    If Application.LanguageSettings.LanguageID(2) = 1040 Then Italiano = KRT_ITALIAN  ' msoLanguageIDUI, Italian
End Function

Public Function KRTENCODE(ByVal symbology As String, ByVal content As Variant, Optional ByVal check As Variant, _
                          Optional ByVal symbol As Variant) As Variant
    Dim s As String
    If Codifica(symbology, Testo(content), IIf(Vero(check), KRT_CHECK, 0), Vero(symbol), s) Then
        KRTENCODE = s
    Else
        KRTENCODE = CVErr(xlErrValue)
    End If
End Function

Public Function KRTENTRY(ByVal entry As String, ByVal content As Variant, Optional ByVal check As Variant, _
                         Optional ByVal hrc As Variant, Optional ByVal symbol As Variant) As Variant
    Dim n() As Byte, c() As Byte, r As LongPtr, s As String, flags As Long
    KRTENTRY = CVErr(xlErrValue)
    If Not InCp1252(entry, n) Or Not InCp1252(Testo(content), c) Then Exit Function
    flags = IIf(Vero(check), KRT_CHECK, 0) Or IIf(Vero(hrc), KRT_HRC, 0)
    If Campo(krt_entry_encode(n(0), c(0), UBound(c), flags, 0, r), r, KRT_FIELD_GLYPHS, Vero(symbol), s) Then KRTENTRY = s
End Function

Public Function KRTHRC(ByVal entry As String, ByVal content As Variant, Optional ByVal check As Variant) As Variant
    Dim n() As Byte, c() As Byte, r As LongPtr, s As String, flags As Long
    KRTHRC = CVErr(xlErrValue)
    If Not InCp1252(entry, n) Or Not InCp1252(Testo(content), c) Then Exit Function
    flags = KRT_HRC Or IIf(Vero(check), KRT_CHECK Or KRT_CHECK_IN_HRC, 0)
    If Campo(krt_entry_encode(n(0), c(0), UBound(c), flags, 0, r), r, KRT_FIELD_HRC, False, s) Then KRTHRC = s
End Function

Public Function KRTGS1(ByVal text As Variant, Optional ByVal symbol As Variant) As Variant
    Dim t() As Byte, r As LongPtr, s As String
    KRTGS1 = CVErr(xlErrValue)
    If Not InCp1252(Trim$(Testo(text)), t) Then Exit Function
    If Campo(krt_gs1_encode_text(t(0), UBound(t), 0, 0, r), r, KRT_FIELD_GLYPHS, Vero(symbol), s) Then KRTGS1 = s
End Function

Public Function KRTISBN(ByVal text As Variant) As Variant
    Dim t() As Byte, o() As Byte, n As LongPtr
    KRTISBN = CVErr(xlErrValue)
    If Not InCp1252(Testo(text), t) Then Exit Function
    ReDim o(0 To 63)
    If krt_isbn_convert(t(0), UBound(t), KRT_ISBN13, o(0), 64, n, 0) = KRT_OK Then KRTISBN = DaByte(o, CLng(n), False)
End Function

Public Function KRTWHY(ByVal symbology As String, ByVal content As Variant, Optional ByVal check As Variant) As Variant
    Dim s() As Byte, c() As Byte, motivo() As Byte, testo_() As Byte, i As Long, stato As Long
    If Not InCp1252(symbology, s) Or Not InCp1252(Testo(content), c) Then
        KRTWHY = "a character that Windows-1252 lacks"
        Exit Function
    End If
    ReDim motivo(0 To REASON_SIZE - 1)
    stato = krt_explain(s(0), c(0), UBound(c), IIf(Vero(check), KRT_CHECK, 0) Or Italiano(), motivo(0))
    i = REASON_TEXT
    Do While i < REASON_SIZE - 1
        If motivo(i) = 0 Then Exit Do
        i = i + 1
    Loop
    testo_ = ByteParte(motivo, REASON_TEXT, i - REASON_TEXT)
    KRTWHY = DaByte(testo_, i - REASON_TEXT, False)
    If KRTWHY = "" And stato <> KRT_OK Then KRTWHY = "refused (krt.dll status " & stato & ")"
End Function

Private Function ByteParte(ByRef b() As Byte, ByVal da As Long, ByVal n As Long) As Byte()
    Dim p() As Byte, i As Long
    ReDim p(0 To n)
    For i = 0 To n - 1
        p(i) = b(da + i)
    Next i
    ByteParte = p
End Function
