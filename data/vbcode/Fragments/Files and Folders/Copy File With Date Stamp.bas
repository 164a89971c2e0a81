' Keeps a dated copy beside the original, such as "Report 2024-05-31.xlsx".
{STRING:Copy} = Left$({STRING:Path}, InStrRev({STRING:Path}, ".") - 1) & " " _
    & Format$(Date, "yyyy-mm-dd") & Mid$({STRING:Path}, InStrRev({STRING:Path}, "."))
FileCopy {STRING:Path}, {STRING:Copy}
<cursor>
