" Copy to ~/.vim/compiler/tly.vim; then ":compiler tly" and ":make": notices are in the quickfix list.
if exists("current_compiler")
  finish
endif
let current_compiler = "tly"
CompilerSet makeprg=tly\ -xMODERN\ -i\ -Nv\ -Tn\ \"-rc,h,cc,cpp,cxx,hh,hxx,hpp,java,cs\ .\"
CompilerSet errorformat=%f(%l)\ :\ Notice\ #%n%*[\ ]-\ %m,%-G%.%#
